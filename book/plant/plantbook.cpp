#include "book/plant/plantbook.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "book/plant/seamcontent.h"

namespace welmo::book {

namespace {

// Lists are kept as JSON.
QVariant columnValue(const QVariant &value)
{
    if (value.userType() != QMetaType::QVariantList)
        return value.userType() == QMetaType::QVariantMap ? QVariant() : value;
    return QString::fromUtf8(
        QJsonDocument(QJsonArray::fromVariantList(value.toList())).toJson(QJsonDocument::Compact));
}

} // namespace

std::unique_ptr<PlantBook> PlantBook::open(const QString &file, QString *problem,
                                           Database::Access access)
{
    auto database = Database::open(file, access, problem, plantSchema());
    return database ? std::unique_ptr<PlantBook>(new PlantBook(std::move(database))) : nullptr;
}

std::optional<QVector<PlantBook::Taken>> PlantBook::take(const QVector<Entry> &entries)
{
    QVector<Taken> all;
    const auto takenOf = [&](const Entry &entry) -> Taken * {
        const auto found = std::find_if(all.begin(), all.end(), [&](const Taken &one) {
            return one.cell == entry.cell && one.log == entry.log;
        });
        if (found != all.end())
            return &*found;
        const std::optional<Taken> begun = begin(entry);
        if (begun)
            all.append(*begun);
        return begun ? &all.last() : nullptr;
    };
    const bool done = database().atOnce([&] {
        return std::all_of(entries.begin(), entries.end(),
                           [&](const Entry &entry) {
                               Taken *taken = takenOf(entry);
                               return taken && takeOne(entry, taken);
                           })
            && std::all_of(all.begin(), all.end(), [&](const Taken &one) { return finish(one); });
    });
    return done ? std::make_optional(all) : std::nullopt;
}

// Writes first: from then on no other recorder changes this log until the transaction ends.
std::optional<PlantBook::Taken> PlantBook::begin(const Entry &entry)
{
    const QVariantList log{entry.cell, entry.log};
    if (!database().run(QStringLiteral("INSERT INTO taken VALUES (?, ?, 0, 0)"
                                       " ON CONFLICT DO NOTHING"),
                        log)
        || !database().run(QStringLiteral("UPDATE taken SET sequence = sequence"
                                          " WHERE cell = ? AND log = ?"),
                           log))
        return std::nullopt;
    QSqlQuery query = database().query();
    query.prepare(QStringLiteral("SELECT sequence, dropped FROM taken WHERE cell = ? AND log = ?"));
    for (const QVariant &value : log)
        query.addBindValue(value);
    if (!database().run(query) || !query.next())
        return std::nullopt;
    Taken taken{entry.cell, entry.log, query.value(0).toLongLong()};
    taken.dropped = query.value(1).toLongLong();
    return taken;
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
        values.append(columnValue(entry.content.value(QLatin1String(value.key))));
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
