#include "book/records/columns.h"

namespace welmo::book {

namespace {

QString typeOf(const QString *)
{
    return QStringLiteral("TEXT");
}
QString typeOf(const double *)
{
    return QStringLiteral("REAL");
}
QString typeOf(const std::optional<double> *)
{
    return QStringLiteral("REAL");
}
template<typename Integer>
QString typeOf(const Integer *)
{
    return QStringLiteral("INTEGER");
}

QVariant told(const QString &text)
{
    return text.isEmpty() ? QVariant(QVariant::String) : QVariant(text);
}
QVariant told(const std::optional<double> &number)
{
    return number ? QVariant(*number) : QVariant(QVariant::Double);
}
QVariant told(Verdict verdict)
{
    return static_cast<int>(verdict);
}
template<typename Number>
QVariant told(const Number &number)
{
    return number;
}

void take(QString &text, const QVariant &value)
{
    text = value.toString();
}
void take(std::optional<double> &number, const QVariant &value)
{
    number = value.isNull() ? std::nullopt : std::optional<double>(value.toDouble());
}
void take(Verdict &verdict, const QVariant &value)
{
    verdict = static_cast<Verdict>(qBound(0, value.toInt(), static_cast<int>(Verdict::Red)));
}
template<typename Number>
void take(Number &number, const QVariant &value)
{
    number = value.value<Number>();
}

template<typename Value>
Column column(const char *name, Value Seam::*member, const char *unit = "")
{
    return {QString::fromLatin1(name), QString::fromLatin1(unit),
            typeOf(static_cast<const Value *>(nullptr)),
            [member](const Seam &seam) { return told(seam.*member); },
            [member](Seam &seam, const QVariant &value) { take(seam.*member, value); }};
}

void addSpread(std::vector<Column> &columns, const char *name, Spread Seam::*member,
               const char *unit)
{
    const std::pair<const char *, double Spread::*> parts[] = {{"mean", &Spread::mean},
                                                               {"min", &Spread::minimum},
                                                               {"max", &Spread::maximum},
                                                               {"stddev", &Spread::deviation}};
    for (const auto &[word, part] : parts) {
        double Spread::*const value = part;
        columns.push_back({QStringLiteral("%1_%2").arg(QLatin1String(name), QLatin1String(word)),
                           QString::fromLatin1(unit), QStringLiteral("REAL"),
                           [member, value](const Seam &seam) { return seam.*member.*value; },
                           [member, value](Seam &seam, const QVariant &number) {
                               seam.*member.*value = number.toDouble();
                           }});
    }
}

std::vector<Column> makeColumns()
{
    std::vector<Column> columns{
        column("started", &Seam::started, "ms"),
        column("utc_offset", &Seam::utcOffset, "min"),
        column("duration", &Seam::duration, "ms"),
        column("clock_moved", &Seam::clockMoved, "ms"),
        column("ended", &Seam::ended),
        column("cell", &Seam::cell),
        column("program", &Seam::program),
        column("line", &Seam::line),
        column("last_line", &Seam::lastLine),
        column("mode", &Seam::mode),
        column("user", &Seam::user),
        column("arcon_file", &Seam::arconFile),
        column("arcon_version", &Seam::arconVersion),
        column("weld_file", &Seam::weldFile),
        column("weld_version", &Seam::weldVersion),
        column("arcoff_file", &Seam::arcoffFile),
        column("arcoff_version", &Seam::arcoffVersion),
        column("trims", &Seam::trims),
        column("set_current", &Seam::setCurrent, "A"),
        column("set_voltage", &Seam::setVoltage, "V"),
        column("set_speed", &Seam::setSpeed, "mm/s"),
    };
    addSpread(columns, "current", &Seam::current, "A");
    addSpread(columns, "voltage", &Seam::voltage, "V");
    addSpread(columns, "speed", &Seam::speed, "mm/s");
    const std::vector<Column> rest{
        column("arc_time", &Seam::arcTime, "s"),
        column("length", &Seam::length, "mm"),
        column("wire", &Seam::wire, "m"),
        column("gas_time", &Seam::gasTime, "s"),
        column("arc_energy", &Seam::arcEnergy, "kJ/mm"),
        column("heat_input", &Seam::heatInput, "kJ/mm"),
        column("efficiency", &Seam::efficiency),
        column("restrikes", &Seam::restrikes),
        column("interruptions", &Seam::interruptions),
        column("alarm", &Seam::alarm),
        column("alarm_arguments", &Seam::alarmArguments),
        column("verdict", &Seam::verdict),
        column("reason", &Seam::reason),
    };
    columns.insert(columns.end(), rest.begin(), rest.end());
    return columns;
}

} // namespace

const std::vector<Column> &seamColumns()
{
    static const std::vector<Column> columns = makeColumns();
    return columns;
}

} // namespace welmo::book
