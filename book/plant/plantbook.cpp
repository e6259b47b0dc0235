#include "book/plant/plantbook.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <algorithm>

#include "book/plant/seamcontent.h"

namespace welmo::book {

namespace {

// Lists are kept as JSON. A cell may hand over anything, but only numbers fit a number's column.
QVariant columnValue(const QVariant &value, bool isNumber)
{
    if (isNumber)
        return value.canConvert<qint64>() ? value.toLongLong() : QVariant(QVariant::LongLong);
    if (value.userType() != QMetaType::QVariantList)
        return value.userType() == QMetaType::QVariantMap ? QVariant() : value.toString();
    return QString::fromUtf8(
        QJsonDocument(QJsonArray::fromVariantList(value.toList())).toJson(QJsonDocument::Compact));
}

} // namespace

std::unique_ptr<PlantBook> PlantBook::open(const Place &place, QString *problem,
                                           Database::Access access)
{
    auto database = Database::open(place, access, problem, plantSchema());
    return database ? std::unique_ptr<PlantBook>(new PlantBook(std::move(database))) : nullptr;
}

std::optional<QVector<PlantBook::Taken>> PlantBook::take(const QVector<Entry> &entries)
{
    using Log = QPair<QString, QString>;
    QMap<Log, Taken> all;
    for (const Entry &entry : entries)
        all.insert({entry.cell, entry.log}, {entry.cell, entry.log});
    const bool done = database().atOnce([&] {
        // All logs first, and each recorder in the same order, so that none waits for another one
        // that waits for it.
        return std::all_of(all.begin(), all.end(), [this](Taken &one) { return begin(&one); })
            && std::all_of(entries.begin(), entries.end(),
                           [&](const Entry &entry) {
                               return takeOne(entry, &all[{entry.cell, entry.log}]);
                           })
            && std::all_of(all.begin(), all.end(),
                           [this](const Taken &one) { return finish(one); });
    });
    return done ? std::make_optional(QVector<Taken>(all.cbegin(), all.cend())) : std::nullopt;
}

// Writes first: from then on no other recorder changes this log until the transaction ends.
bool PlantBook::begin(Taken *taken)
{
    const QVariantList log{taken->cell, taken->log};
    if (!database().run(QStringLiteral("INSERT INTO taken VALUES (?, ?, 0, 0)"
                                       " ON CONFLICT DO NOTHING"),
                        log)
        || !database().run(QStringLiteral("UPDATE taken SET sequence = sequence"
                                          " WHERE cell = ? AND log = ?"),
                           log))
        return false;
    QSqlQuery query = database().select(
        QStringLiteral("SELECT sequence, dropped FROM taken WHERE cell = ? AND log = ?"), log);
    if (!database().next(query))
        return false;
    taken->sequence = query.value(0).toLongLong();
    taken->dropped = query.value(1).toLongLong();
    return true;
}

bool PlantBook::takeOne(const Entry &entry, Taken *taken)
{
    if (entry.sequence <= taken->sequence)
        return true;
    if (entry.after > taken->sequence) {
        taken->gap = true;
        return true;
    }
    bool known = true;
    if (!store(entry, &known))
        return false;
    taken->sequence = entry.sequence;
    if (entry.dropped > taken->dropped) {
        taken->lost += entry.dropped - taken->dropped;
        taken->dropped = entry.dropped;
    }
    ++(known ? taken->added : taken->unknown);
    return true;
}

bool PlantBook::store(const Entry &entry, bool *known)
{
    if (entry.kind == kind::seam)
        return storeSeam(entry, known);
    const auto &tables = listTables();
    const auto table = std::find_if(tables.begin(), tables.end(),
                                    [&](const ListTable &one) { return one.kind == entry.kind; });
    *known = table != tables.end();
    if (!*known)
        return true;
    QStringList columns{QStringLiteral("cell, log, sequence")};
    QStringList marks{QStringLiteral("?, ?, ?")};
    QVariantList values{entry.cell, entry.log, entry.sequence};
    for (const ListTable::Value &value : table->values) {
        columns.append(QLatin1String(value.column));
        marks.append(QStringLiteral("?"));
        values.append(columnValue(entry.content.value(QLatin1String(value.key)), value.isNumber()));
    }
    return database().run(
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(entry.kind, columns.join(QStringLiteral(", ")), marks.join(QStringLiteral(", "))),
        values);
}

bool PlantBook::storeSeam(const Entry &entry, bool *known)
{
    SeamContent content;
    *known = content.read(entry.content);
    if (!*known)
        return true;
    Seam seam = content.seam;
    seam.cell = entry.cell; // the broker answers for this name, and the content for none
    const bool begun = m_book.begin(&seam)
        && database().run(QStringLiteral("UPDATE seam SET log = ?, sequence = ?, course_rate = ?"
                                         " WHERE id = ?"),
                          {entry.log, entry.sequence, content.rate, seam.id});
    int part = 0;
    return begun && addToSum(seam)
        && std::all_of(content.course.begin(), content.course.end(), [&](const auto &data) {
               return database().run(QStringLiteral("INSERT INTO course VALUES (?, ?, ?)"),
                                     {seam.id, ++part, data});
           });
}

bool PlantBook::addToSum(const Seam &seam)
{
    return database().run(
        QStringLiteral("INSERT INTO seamsum VALUES (?, ?, ?, 1, ?, ?, ?)"
                       " ON CONFLICT (hour, cell, verdict) DO UPDATE SET seams = seamsum.seams + 1,"
                       " arc_time = seamsum.arc_time + excluded.arc_time,"
                       " wire = seamsum.wire + excluded.wire,"
                       " gas_time = seamsum.gas_time + excluded.gas_time"),
        {seam.started - seam.started % hourMs, seam.cell, static_cast<int>(seam.verdict),
         seam.arcTime, seam.wire.value_or(0), seam.gasTime.value_or(0)});
}

bool PlantBook::finish(const Taken &taken)
{
    return database().run(
        QStringLiteral("UPDATE taken SET sequence = ?, dropped = ? WHERE cell = ? AND log = ?"),
        {taken.sequence, taken.dropped, taken.cell, taken.log});
}

} // namespace welmo::book
