#include "pendant/program/filefacts.h"

#include <QCoreApplication>
#include <QStringList>

#include "schema/filesets.h"
#include "schema/unit.h"
#include "schema/welders.h"
#include "tessa/xservice.h"

namespace welmo::pendant {

namespace {

QString withUnit(double number, const QString &unit)
{
    return QString::number(number) + QLatin1Char(' ') + unit;
}

class Reading
{
    Q_DECLARE_TR_FUNCTIONS(FileFacts)
public:
    explicit Reading(const kelp::ModuleObject *file)
        : m_file(file)
    { }

    void take(const schema::ProcessSet &set, double ratedCurrent, FileFacts *facts) const
    {
        const double current = number(set.current);
        const bool inAmperes = code(set.currentMode) != QLatin1String(schema::codes::wireFeed);
        const bool inVolts = code(set.voltageMode) == QLatin1String(schema::codes::separate);
        facts->current = withUnit(current, inAmperes ? units::ampere : units::mmPerSecond);
        facts->voltage = withUnit(number(set.voltage), inVolts ? units::volt : units::percent);
        if (&set == &schema::weld())
            facts->speed = withUnit(number(schema::weld().weldSpeed), units::mmPerSecond);
        const bool isEnd = &set == &schema::arcOff();
        if (current <= 0 && isEnd)
            leaveOutFilling(facts);
        else if (current <= 0)
            facts->finding = tr("nothing burns at %1").arg(facts->current);
        else if (inAmperes && current > ratedCurrent)
            facts->finding = tr("the machine gives %1").arg(withUnit(ratedCurrent, units::ampere));
    }
    // An arc end may do without filling the crater.
    static void leaveOutFilling(FileFacts *facts)
    {
        facts->current = facts->voltage = QStringLiteral("–");
        facts->remark = tr("the crater is not filled");
    }
    static QString missing() { return tr("the controller has no such file"); }

private:
    double number(const schema::Row &row) const
    {
        return m_file->r(QLatin1String(row.key))->getDouble();
    }
    QString code(const schema::Row &row) const
    {
        return m_file->r(QLatin1String(row.key))->getString();
    }

    const kelp::ModuleObject *m_file;
};

} // namespace

const schema::FileSet *setOfFile(const QString &file)
{
    for (const schema::FileSet *set : schema::fileSets()) {
        if (set->hasFile(file))
            return set;
    }
    return nullptr;
}

FileFacts factsOf(const QString &file, double ratedCurrent, XService *service)
{
    const schema::FileSet *set = setOfFile(file);
    if (!set || !service->isConnected())
        return {};
    const auto answer = service->get(nullptr, set->node(), file);
    FileFacts facts;
    facts.isKnown = answer->getInt(0) == 0;
    facts.annotation = answer->r(QLatin1String(set->annotation.key))->getString();
    facts.exists = answer->r(QLatin1String(set->fileName.key))->getString() == file;
    if (facts.isKnown && !facts.exists)
        facts.finding = Reading::missing();
    else if (const auto *process = dynamic_cast<const schema::ProcessSet *>(set))
        Reading(answer.get()).take(*process, ratedCurrent, &facts);
    return facts;
}

QString FileFacts::summary() const
{
    QStringList parts{annotation, current, voltage, speed, remark, finding};
    parts.removeAll(QString());
    return parts.isEmpty() ? QStringLiteral("–") : parts.join(QStringLiteral(", "));
}

double ratedCurrentIn(const QVariantMap &welderSetting)
{
    return welderSetting.value(QLatin1String(schema::welderSetting().ratedCurrent.key)).toDouble();
}

} // namespace welmo::pendant
