#include "book/keeper/releases.h"

#include <QDateTime>
#include <QJsonDocument>

#include <kelp/moduleobject.h>
#include <tessa/xservice.h>

#include "schema/filesets.h"
#include "schema/reasons.h"

namespace welmo::book {

namespace {

const QString settingName = QStringLiteral("releases");

} // namespace

Releases::Releases(BookThread *keeping, CellWriter *cell, const FileWatch *files, QObject *parent)
    : QObject(parent)
    , m_keeping(keeping)
    , m_cell(cell)
{
    connect(xservice()->watchNode(names::released), &kelp::ModuleObject::changed, this,
            [this](const QVariant &news) {
                const QVariantMap all = news.toMap();
                for (auto it = all.begin(); it != all.end(); ++it)
                    take(it.key(), *it);
                emit changed();
            });
    connect(files, &FileWatch::noted, this, &Releases::check);
    load();
}

void Releases::load()
{
    m_keeping->ask(
        this, [](SeamBook &book) { return book.setting(settingName); },
        [this](const QString &json) {
            const QVariantMap set = m_own; // before the book was read
            m_own = QJsonDocument::fromJson(json.toUtf8()).toVariant().toMap();
            m_own.insert(set);
            if (!set.isEmpty())
                keep();
            emit changed();
        });
}

void Releases::listen(bool enforced)
{
    m_enforced = enforced;
    m_theirs.clear();
    if (enforced) {
        xservice()->watch(this, names::released, true);
        const auto answer = xservice()->get(this, names::released);
        if (answer && answer->getInt(0) == 0)
            m_theirs = answer->toVariant().toMap();
    }
    emit changed();
}

void Releases::take(const QString &file, const QVariant &content)
{
    if (content.toMap().isEmpty())
        m_theirs.remove(file);
    else
        m_theirs.insert(file, content);
}

schema::Release Releases::of(const QString &file) const
{
    return schema::Release::from((m_enforced ? m_theirs : m_own).value(file));
}

bool Releases::set(const QString &file, const schema::Release &release, QString *problem)
{
    if (m_enforced) {
        const QString title = release.exists() ? tr("%1 released") : tr("%1: release withdrawn");
        const QVariant value = release.exists() ? QVariant(release.toMap()) : QVariant();
        return m_cell->apply(title.arg(file), {{names::released, file, value}}, problem);
    }
    schema::Release dated = release;
    dated.time = QDateTime::currentDateTime().toString(Qt::ISODate);
    if (release.exists())
        m_own.insert(file, dated.toMap());
    else
        m_own.remove(file);
    keep();
    emit changed();
    return true;
}

void Releases::keep()
{
    const QString json =
        QString::fromUtf8(QJsonDocument::fromVariant(m_own).toJson(QJsonDocument::Compact));
    m_keeping->ask(
        this,
        [json](SeamBook &book) {
            return book.setSetting(settingName, json) ? QString() : book.errorText();
        },
        [this](const QString &problem) {
            if (!problem.isEmpty())
                emit failed(problem);
        });
}

void Releases::check(const QString &file, const QVariant &before, const QVariant &after)
{
    const schema::Release release = of(file);
    if (m_enforced || !release.exists() || after.toMap().isEmpty())
        return;
    const auto breach = schema::breachOf(*schema::setOfFile(file), release, before, after);
    if (breach)
        emit breached(schema::reasonText(breach->reason(), breach->arguments(file)));
}

} // namespace welmo::book
