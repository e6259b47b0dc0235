#include "book/keeper/filewatch.h"

#include <QDateTime>
#include <QSet>
#include <algorithm>

#include <kelp/moduleobject.h>
#include <tessa/xservice.h>

#include "book/records/filecontent.h"
#include "schema/filesets.h"

namespace welmo::book {

namespace {

constexpr int soonMs = 300;

const QString entriesKey = QStringLiteral("entries");

qint64 numberOf(const QVariant &entry)
{
    return entry.toMap().value(QStringLiteral("number")).toLongLong();
}

// The audit's paths also name the items of lists.
QVariant valueAt(const QVariantMap &content, const QString &at)
{
    const QVariant list = content.value(at.section(QLatin1Char('.'), 0, -2));
    return content.contains(at) ? content.value(at)
                                : list.toList().value(at.section(QLatin1Char('.'), -1).toInt());
}

// Whether an audit entry made this version: the content has the new values that it names.
bool tells(const QVariantMap &entry, const QVariantMap &content)
{
    const QVariant changes = entry.value(QStringLiteral("changes"));
    const QVariantList list =
        changes.userType() == QMetaType::QVariantMap ? changes.toMap().values() : changes.toList();
    return std::all_of(list.begin(), list.end(), [&](const QVariant &one) {
        const QVariantMap change = one.toMap();
        const QString at = change.value(QStringLiteral("at")).toString();
        const QVariant now = change.value(QStringLiteral("new"));
        return at.isEmpty() ? now.isValid() != content.isEmpty()
                            : sameValues(now, valueAt(content, at));
    });
}

} // namespace

FileWatch::FileWatch(BookThread *keeping, QObject *parent)
    : QObject(parent)
    , m_keeping(keeping)
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(soonMs);
    connect(&m_soon, &QTimer::timeout, this, &FileWatch::askWho);
    for (const schema::FileSet *set : schema::fileSets())
        follow(*set);
}

void FileWatch::follow(const schema::FileSet &set)
{
    connect(xservice()->watchNode(set.node()), &kelp::ModuleObject::changed, this,
            [this](const QVariant &news) {
                const QVariantMap files = news.toMap();
                for (auto it = files.begin(); it != files.end(); ++it)
                    take(it.key(), *it);
                emit changed();
            });
}

void FileWatch::load(const QVector<FileVersion> &newest)
{
    for (const FileVersion &version : newest)
        m_newest.insert(version.file, version);
    m_loaded = true;
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
        note(it.key());
    for (const FileVersion &version : newest) { // the book was closed before it asked for the user
        if (version.user.isEmpty() && m_newest.value(version.file).number == version.number)
            m_unnamed.append({version.file, version.number});
    }
    m_soon.start();
    emit changed();
}

void FileWatch::listen()
{
    for (const schema::FileSet *set : schema::fileSets()) {
        xservice()->watch(this, set->node(), true);
        readAll(*set);
    }
    m_soon.start();
    emit changed();
}

void FileWatch::readAll(const schema::FileSet &set)
{
    const auto answer = xservice()->get(this, set.node());
    if (!answer || answer->getInt(0) != 0)
        return;
    const QVariantMap there = answer->toVariant().toMap();
    for (const QString &file : set.fileNames()) {
        if (there.contains(file) || m_files.contains(file) || m_newest.value(file).exists())
            take(file, there.value(file));
    }
}

// A removed file is notified with an empty content or none.
void FileWatch::take(const QString &file, const QVariant &content)
{
    if (!schema::setOfFile(file))
        return;
    if (content.toMap().isEmpty())
        m_files.remove(file);
    else
        m_files.insert(file, content);
    if (m_loaded)
        note(file);
}

void FileWatch::note(const QString &file)
{
    const FileVersion before = m_newest.value(file);
    const QByteArray content = contentJson(m_files.value(file));
    if (content == before.content)
        return;
    const FileVersion version{
        file, before.number + 1, QDateTime::currentMSecsSinceEpoch(), {}, content};
    m_newest.insert(file, version);
    emit noted(file, contentFromJson(before.content), m_files.value(file));
    m_unnamed.append({file, version.number});
    m_soon.start();
    keep([version](FileHistory history) { return history.add(version); });
}

void FileWatch::askWho()
{
    if (!xservice()->isConnected() || m_unnamed.isEmpty())
        return; // listen() calls again once the link is up
    const QVector<Unnamed> unnamed = std::exchange(m_unnamed, {});
    const auto answer = xservice()->get(this, names::audit);
    if (!answer || answer->getInt(0) != 0)
        return;
    QVariantList audit;
    for (const kelp::ModuleObject *entry : answer->r(entriesKey)->cmobjs())
        audit.append(entry->toVariant());
    std::sort(audit.begin(), audit.end(),
              [](const QVariant &a, const QVariant &b) { return numberOf(a) > numberOf(b); });
    for (const Unnamed &version : unnamed)
        name(version, audit);
}

void FileWatch::name(const Unnamed &version, const QVariantList &audit)
{
    FileVersion &newest = m_newest[version.file];
    if (newest.number != version.number)
        return; // a newer version has replaced it
    const QVariantMap content = flattened(contentFromJson(newest.content));
    for (const QVariant &one : audit) {
        const QVariantMap entry = one.toMap();
        if (entry.value(QStringLiteral("key")) != version.file || !tells(entry, content))
            continue;
        newest.user = entry.value(QStringLiteral("user")).toString();
        keep([newest](FileHistory history) {
            return history.setUser(newest.file, newest.number, newest.user);
        });
        return;
    }
}

// Emits changed() afterwards, since the pages read versions from the book.
void FileWatch::keep(const std::function<bool(FileHistory)> &work)
{
    m_keeping->ask(
        this,
        [work](SeamBook &book) {
            return work(FileHistory(book.database())) ? QString() : book.errorText();
        },
        [this](const QString &problem) {
            if (!problem.isEmpty())
                emit failed(problem);
            emit changed();
        });
}

} // namespace welmo::book
