#include "book/keeper/restorer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace welmo::book {

namespace {

const QString journalName = QStringLiteral("unfinished_restore");
const QString cellKey = QStringLiteral("cell");
const QString placesKey = QStringLiteral("places");
const QString nodeKey = QStringLiteral("node");
const QString entryKey = QStringLiteral("entry");
const QString valueKey = QStringLiteral("value");

QString journalOf(const QString &cellName, const QVector<CellChange> &before)
{
    QJsonArray places;
    for (const CellChange &place : before)
        places.append(QJsonObject{{nodeKey, place.node},
                                  {entryKey, place.key},
                                  {valueKey, QJsonValue::fromVariant(place.value)}});
    const QJsonObject journal{{cellKey, cellName}, {placesKey, places}};
    return QString::fromUtf8(QJsonDocument(journal).toJson(QJsonDocument::Compact));
}

QVector<CellChange> placesIn(const QJsonObject &journal)
{
    QVector<CellChange> before;
    const QJsonArray places = journal.value(placesKey).toArray();
    for (const QJsonValue &value : places) {
        const QJsonObject place = value.toObject();
        before.append(
            {place.value(nodeKey).toString(), place.value(entryKey).toString(),
             place.value(valueKey).isNull() ? QVariant() : place.value(valueKey).toVariant()});
    }
    return before;
}

} // namespace

Restorer::Restorer(BookThread *keeping, CellWriter *cell, QObject *parent)
    : QObject(parent)
    , m_keeping(keeping)
    , m_cell(cell)
{ }

void Restorer::restore(const QString &cellName, const QString &title,
                       const QVector<CellChange> &changes,
                       const std::function<void(const QString &problem)> &then)
{
    QString unread;
    const auto before = m_cell->asStored(changes, &unread);
    if (!before)
        return then(unread);
    const QString journal = journalOf(cellName, *before);
    m_keeping->ask(
        this,
        [journal](SeamBook &book) {
            return book.setSetting(journalName, journal) ? QString() : book.errorText();
        },
        [this, title, changes, then](const QString &failure) {
            QString problem = failure;
            if (!problem.isEmpty())
                return then(problem);
            // If the old values could not be put back, the journal stays, and recover() tries again
            // later.
            if (m_cell->apply(title, changes, &problem) || m_cell->isWhole())
                forget();
            then(problem);
        });
}

void Restorer::forget()
{
    m_keeping->post([](SeamBook &book) { book.setSetting(journalName, QString()); });
}

void Restorer::recover(const QString &cellName)
{
    m_keeping->ask(
        this, [](SeamBook &book) { return book.setting(journalName); },
        [this, cellName](const QString &text) {
            const QJsonObject journal = QJsonDocument::fromJson(text.toUtf8()).object();
            if (journal.isEmpty() || journal.value(cellKey).toString() != cellName)
                return;
            int done = 0;
            QString problem;
            if (m_cell->write(placesIn(journal), &done, &problem)) {
                forget();
                emit recovered(tr("a restore that was cut off was taken back"));
            } else {
                emit recovered(
                    tr("a restore that was cut off could not be taken back: %1").arg(problem));
            }
        });
}

} // namespace welmo::book
