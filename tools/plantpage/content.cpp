#include "tools/plantpage/content.h"

#include <QDateTime>
#include <QJsonArray>
#include <QTranslator>
#include <algorithm>

#include "book/records/columns.h"
#include "schema/names.h"
#include "schema/reasons.h"

using namespace welmo::book;
namespace names = welmo::names;

namespace plantpage::content {

namespace {

constexpr int mostRows = 200;
constexpr int mostRead = 2000; // to find those that a viewer may read

QJsonValue json(const QVariant &value)
{
    return QJsonValue::fromVariant(value);
}

// The newest alarm that nobody has acknowledged.
QJsonValue openAlarm(const QVariantMap &alarms)
{
    const QVariantList entries = alarms.value(QStringLiteral("entries")).toList();
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const QVariantMap alarm = entry->toMap();
        if (alarm.value(QStringLiteral("open")).toBool())
            return json(alarm);
    }
    return {};
}

QJsonObject cellNow(const QString &name, const Watch::Cell &cell)
{
    const QVariantMap program = cell.values.value(names::programState);
    const QVariantMap welder = cell.values.value(names::welderState);
    const auto value = [](const QVariantMap &map, const char *key) {
        return json(map.value(QLatin1String(key)));
    };
    return {{QStringLiteral("name"), name},
            {QStringLiteral("there"), cell.there},
            {QStringLiteral("changed"), cell.changed},
            {QStringLiteral("state"), value(cell.values.value(names::cellState), "state")},
            {QStringLiteral("mode"), value(cell.values.value(names::weldMode), "mode")},
            {QStringLiteral("program"), value(program, "name")},
            {QStringLiteral("line"), value(program, "line")},
            {QStringLiteral("current"), value(welder, "current")},
            {QStringLiteral("voltage"), value(welder, "voltage")},
            {QStringLiteral("alarm"), openAlarm(cell.values.value(names::alarms))}};
}

QString wordOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::None:
        return QStringLiteral("none");
    case Verdict::Green:
        return QStringLiteral("green");
    case Verdict::Amber:
        return QStringLiteral("amber");
    case Verdict::Red:
        return QStringLiteral("red");
    }
    return {};
}

void add(QJsonObject &all, const QString &key, const PlantBook::Sum &sum)
{
    QJsonObject counts = all.value(key).toObject();
    const auto raise = [&](const QString &name, double by) {
        counts.insert(name, counts.value(name).toDouble() + by);
    };
    raise(wordOf(sum.verdict), double(sum.count));
    raise(QStringLiteral("seams"), double(sum.count));
    raise(QStringLiteral("arcTime"), sum.arcTime);
    raise(QStringLiteral("wire"), sum.wire);
    raise(QStringLiteral("gasTime"), sum.gasTime);
    all.insert(key, counts);
}

QJsonObject toJson(const Seam &seam)
{
    QJsonObject object{{QStringLiteral("id"), seam.id}};
    for (const Column &column : seamColumns())
        object.insert(column.name, json(column.get(seam)));
    object.insert(QStringLiteral("verdict"), wordOf(seam.verdict));
    return object;
}

QJsonObject toJson(const PlantBook::Alarm &alarm)
{
    return {{QStringLiteral("cell"), alarm.cell},
            {QStringLiteral("time"), alarm.time},
            {QStringLiteral("code"), alarm.code},
            {QStringLiteral("arguments"), QJsonArray::fromVariantList(alarm.arguments)},
            {QStringLiteral("program"), alarm.program},
            {QStringLiteral("line"), alarm.line},
            {QStringLiteral("file"), alarm.file}};
}

QJsonObject toJson(const PlantBook::Change &change)
{
    return {{QStringLiteral("cell"), change.cell},
            {QStringLiteral("time"), change.time},
            {QStringLiteral("user"), change.user},
            {QStringLiteral("path"), change.path},
            {QStringLiteral("entry"), change.entry},
            {QStringLiteral("changes"), QJsonArray::fromVariantList(change.changes)}};
}

/// The first rows whose cell the viewer may read.
template<typename Row>
QJsonObject list(const QString &name, const Viewer &viewer, const QVector<Row> &rows)
{
    QJsonArray array;
    for (const Row &row : rows) {
        if (viewer.mayRead(row.cell) && array.size() < mostRows)
            array.append(toJson(row));
    }
    return {{name, array}};
}

int rowsToRead(const Viewer &viewer, const Question &question)
{
    return viewer.readsAll || !question.cell.isEmpty() ? mostRows : mostRead;
}

QJsonArray tenths(const Samples &samples, double Sample::*value)
{
    QJsonArray array;
    for (const Sample &sample : samples)
        array.append(qRound(sample.*value * 10) / 10.0);
    return array;
}

} // namespace

QJsonObject plant(const Viewer &viewer, const Watch &watch)
{
    const Watch::Cells known = watch.cells();
    QJsonArray cells;
    for (auto cell = known.begin(); cell != known.end(); ++cell) {
        if (viewer.mayRead(cell.key()))
            cells.append(cellNow(cell.key(), *cell));
    }
    return {{QStringLiteral("user"), viewer.user},
            {QStringLiteral("problem"), watch.problem()},
            {QStringLiteral("now"), QDateTime::currentMSecsSinceEpoch()},
            {QStringLiteral("cells"), cells}};
}

QJsonObject sums(const Viewer &viewer, PlantBook &book, const Question &question)
{
    using Of = PlantBook::SumOf;
    const auto sumsOf = [&](Of of) {
        return book.sums(question.from, question.until, question.cell, of);
    };
    QJsonObject hours;
    QJsonObject cells;
    // The database adds up faster, but it does not know who may read what.
    for (const PlantBook::Sum &sum : sumsOf(viewer.readsAll ? Of::Hour : Of::CellAndHour)) {
        if (viewer.mayRead(sum.cell))
            add(hours, QString::number(sum.hour), sum);
    }
    for (const PlantBook::Sum &sum : sumsOf(Of::Cell)) {
        if (viewer.mayRead(sum.cell))
            add(cells, sum.cell, sum);
    }
    return {{QStringLiteral("hours"), hours}, {QStringLiteral("cells"), cells}};
}

QJsonObject seams(const Viewer &viewer, PlantBook &book, const Question &question)
{
    Filter filter;
    filter.from = question.from;
    filter.until = question.until;
    filter.cell = question.cell;
    return list(QStringLiteral("seams"), viewer,
                book.seams().list(filter, rowsToRead(viewer, question)));
}

QJsonObject seam(const Viewer &viewer, PlantBook &book, qint64 id)
{
    const std::optional<Seam> found = book.seams().seam(id);
    if (!found || !viewer.mayRead(found->cell))
        return {};
    const Course course = book.seams().course(id);
    QJsonObject object = toJson(*found);
    object.insert(QStringLiteral("rate"), course.rate);
    object.insert(QStringLiteral("currents"), tenths(course.samples, &Sample::current));
    object.insert(QStringLiteral("voltages"), tenths(course.samples, &Sample::voltage));
    return object;
}

QJsonObject alarms(const Viewer &viewer, PlantBook &book, const Question &question)
{
    return list(
        QStringLiteral("alarms"), viewer,
        book.alarms(question.from, question.until, question.cell, rowsToRead(viewer, question)));
}

QJsonObject changes(const Viewer &viewer, PlantBook &book, const Question &question)
{
    return list(
        QStringLiteral("changes"), viewer,
        book.changes(question.from, question.until, question.cell, rowsToRead(viewer, question)));
}

QJsonObject reasons()
{
    QTranslator chinese;
    chinese.load(QStringLiteral(":/plantpage/plant_cn.qm"));
    QJsonObject all;
    const QHash<QString, const char *> &texts = welmo::schema::reasonTexts();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        all.insert(text.key(),
                   QJsonObject{{QStringLiteral("en"), QString::fromUtf8(*text)},
                               {QStringLiteral("zh"), chinese.translate("Reasons", *text)}});
    return all;
}

} // namespace plantpage::content
