#include "book/report/tables.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "book/records/columns.h"
#include "schema/reasons.h"

namespace welmo::book {

namespace {

constexpr int atATime = 500;
constexpr int jsonSchema = 1;

QString isoTime(const QDateTime &time)
{
    return time.toString(Qt::ISODateWithMs);
}

// More digits than any welder measures.
QVariant rounded(const QVariant &value)
{
    constexpr double scale = 10000;
    return value.type() == QVariant::Double && !value.isNull()
        ? QVariant(std::round(value.toDouble() * scale) / scale)
        : value;
}

QByteArray csvField(const QVariant &value)
{
    QString text = value.toString();
    if (text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"'))
        || text.contains(QLatin1Char('\n'))) {
        text.replace(QLatin1Char('"'), QLatin1String("\"\""));
        text = QLatin1Char('"') + text + QLatin1Char('"');
    }
    return text.toUtf8();
}

QByteArray csvHeading()
{
    QByteArrayList names;
    for (const ReportValue &value : reportValues({}))
        names.append((value.unit.isEmpty() ? value.name
                                           : QStringLiteral("%1 [%2]").arg(value.name, value.unit))
                         .toUtf8());
    return names.join(',') + '\n';
}

QByteArray csvLine(const Seam &seam)
{
    QByteArrayList fields;
    for (const ReportValue &value : reportValues(seam))
        fields.append(csvField(value.value));
    return fields.join(',') + '\n';
}

QJsonObject unitsObject()
{
    QJsonObject units;
    for (const ReportValue &value : reportValues({})) {
        if (!value.unit.isEmpty())
            units.insert(value.name, value.unit);
    }
    return units;
}

QJsonObject courseObject(const Course &course)
{
    QJsonObject object{{QStringLiteral("rate"), course.rate}};
    for (const BandRow &row : bandRows()) {
        if (!row.sample)
            continue;
        QJsonArray values;
        for (const Sample &sample : course.samples)
            values.append(sample.*row.sample);
        object.insert(row.name, values);
    }
    return object;
}

QByteArray jsonRecord(const Seam &seam, const Course &course)
{
    QJsonObject record;
    for (const ReportValue &value : reportValues(seam))
        record.insert(value.name,
                      value.value.isNull() ? QJsonValue() : QJsonValue::fromVariant(value.value));
    record.insert(QStringLiteral("course"), courseObject(course));
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

QByteArray jsonHeading()
{
    const QByteArray units = QJsonDocument(unitsObject()).toJson(QJsonDocument::Compact);
    return "{\"schema\":" + QByteArray::number(jsonSchema) + ",\"units\":" + units
        + ",\n\"seams\":[";
}

} // namespace

QString verdictWord(Verdict verdict)
{
    const char *const words[] = {"none", "green", "amber", "red"};
    return QString::fromLatin1(words[static_cast<int>(verdict)]);
}

QString alarmText(const Seam &seam)
{
    const QByteArray arguments = seam.alarmArguments.toUtf8();
    return schema::reasonText(seam.alarm,
                              QJsonDocument::fromJson(arguments).array().toVariantList());
}

QVector<ReportValue> reportValues(const Seam &seam)
{
    QVector<ReportValue> values{
        {QStringLiteral("id"), {}, seam.id},
        {QStringLiteral("started"), {}, isoTime(seam.startedAt())},
        {QStringLiteral("finished"), {}, seam.isOpen() ? QVariant() : isoTime(seam.endedAt())},
    };
    for (const Column &column : seamColumns()) {
        if (column.name == QLatin1String("verdict"))
            values.append({column.name, {}, verdictWord(seam.verdict)});
        else if (column.name != QLatin1String("started")
                 && column.name != QLatin1String("utc_offset"))
            values.append({column.name, column.unit, rounded(column.get(seam))});
    }
    return values;
}

bool writeTable(SeamBook &book, const Filter &filter, TableFormat format, QIODevice *out,
                QString *problem)
{
    const bool json = format == TableFormat::Json;
    bool good = out->write(json ? jsonHeading() : csvHeading()) > 0;
    QByteArray separator = "\n";
    for (int offset = 0; good; offset += atATime) {
        const QVector<Seam> some = book.list(filter, atATime, offset);
        for (const Seam &seam : some) {
            const QByteArray line =
                json ? separator + jsonRecord(seam, book.course(seam.id)) : csvLine(seam);
            separator = ",\n";
            good = good && out->write(line) == line.size();
        }
        if (some.size() < atATime)
            break;
    }
    if (json)
        good = good && out->write("\n]}\n") > 0;
    if (!good)
        *problem = out->errorString();
    else if (!book.errorText().isEmpty())
        *problem = book.errorText();
    return problem->isEmpty();
}

} // namespace welmo::book
