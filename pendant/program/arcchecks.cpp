#include "pendant/program/arcchecks.h"

#include <QCoreApplication>

#include "pendant/program/filefacts.h"
#include "pendant/program/programdocument.h"
#include "pendant/state/cell.h"
#include "pendant/state/navigation.h"
#include "schema/names.h"
#include "schema/welders.h"
#include "schema/weldmode.h"
#include "tessa/xservice.h"
#include "tl/parse.h"

namespace welmo::pendant {

namespace {

using Verdict = ArcCheck::Verdict;

class Examination
{
    Q_DECLARE_TR_FUNCTIONS(ArcChecks)
public:
    Examination(const ProgramDocument &program, const Cell &cell, XService *service)
        : m_program(program)
        , m_cell(cell)
        , m_service(service)
        , m_isUp(service->isConnected())
    { }

    QVector<ArcCheck> run()
    {
        m_checks.append({QStringLiteral("link"), tr("Link to the controller"),
                         m_isUp ? tr("connected") : tr("down"), verdict(m_isUp), controllerKey});
        lookAtCell();
        lookAtWelder();
        lookAtSensors();
        lookAtProgram();
        return m_checks;
    }

private:
    static Verdict verdict(bool good) { return good ? Verdict::Good : Verdict::Bad; }
    // Without a link the controller's part is unknown.
    void add(const QString &id, const QString &text, const QString &good, const QString &bad,
             bool isGood, const QString &page)
    {
        m_checks.append({id, text,
                         !m_isUp      ? tr("unknown")
                             : isGood ? good
                                      : bad,
                         m_isUp ? verdict(isGood) : Verdict::Unknown, page});
    }
    void lookAtCell()
    {
        const QVariantMap switches = m_cell.switches();
        add(QStringLiteral("power"), tr("Power"), tr("on"), tr("off"),
            switches.value(QStringLiteral("power")).toBool(), controllerKey);
        add(QStringLiteral("stop"), tr("Emergency stop"), tr("released"), tr("pressed"),
            !switches.value(QStringLiteral("fault")).toBool(), controllerKey);
        add(QStringLiteral("mode"), tr("Weld mode"), m_cell.modeText(), m_cell.modeText(),
            m_cell.mode() == QLatin1String(schema::weldmode::real), packagePage);
    }
    void lookAtWelder()
    {
        const schema::WelderSettingSet &rows = schema::welderSetting();
        const auto setting = m_service->get(nullptr, names::welderSetting);
        const auto state = m_service->get(nullptr, names::welderState);
        m_ratedCurrent = ratedCurrentIn(setting->toVariant().toMap());
        add(QStringLiteral("enabled"), tr("Welder"), tr("enabled"), tr("not enabled"),
            setting->r(QLatin1String(rows.enable.key))->getBool(), packagePage);
        add(QStringLiteral("connected"), tr("Actual welding machine"), tr("connected"),
            tr("not connected"), setting->r(QLatin1String(rows.connectToWelder.key))->getBool(),
            packagePage);
        const QString word = state->r(QStringLiteral("state"))->getString();
        add(QStringLiteral("welder"), tr("Welder's own state"), tr("no error"), tr("error"),
            word != QLatin1String("error"), controllerKey);
    }
    void lookAtSensors()
    {
        const QVariantMap checks = m_cell.switches().value(QStringLiteral("checks")).toMap();
        const auto sensor = [&](const char *id, const QString &text, const QString &good,
                                const QString &bad) {
            add(QLatin1String(id), text, good, bad, checks.value(QLatin1String(id), true).toBool(),
                controllerKey);
        };
        sensor("gas", tr("Gas"), tr("there is pressure"), tr("no gas"));
        sensor("wire_moves", tr("Wire"), tr("moves"), tr("does not move"));
        sensor("wire_free", tr("End of the wire"), tr("free"), tr("sticks at the end"));
        sensor("strikes", tr("Ignition"), tr("strikes"), tr("does not strike"));
        sensor("burns", tr("Arc"), tr("stays"), tr("breaks off"));
        sensor("storage", tr("Controller's disk"), tr("has room"), tr("full"));
    }
    void lookAtProgram()
    {
        const QStringList files = firstSeam();
        m_checks.append({QStringLiteral("program"), tr("ArcOn in %1").arg(m_program.title()),
                         files.isEmpty() ? tr("no seam begins") : tr("there"),
                         verdict(!files.isEmpty()), programKey});
        lookAtFile(QStringLiteral("start_file"), tr("Arc-start file"), files.value(0));
        lookAtFile(QStringLiteral("weld_file"), tr("Welding file"), files.value(1));
    }
    QStringList firstSeam() const
    {
        for (int row = 0; row < m_program.rowCount(); ++row) {
            const tl::ParsedLine line = tl::parse(m_program.line(row));
            if (line.is(tl::Word::ArcOn))
                return line.names;
        }
        return {};
    }
    void lookAtFile(const QString &id, const QString &text, const QString &file)
    {
        const FileFacts facts = factsOf(file, m_ratedCurrent, m_service);
        if (!facts.isKnown) {
            m_checks.append({id, text, tr("unknown"), Verdict::Unknown, packagePage});
            return;
        }
        const QString value =
            file + QLatin1String(": ") + (facts.finding.isEmpty() ? facts.current : facts.finding);
        add(id, text, value, value, facts.finding.isEmpty(), packagePage);
    }

    const ProgramDocument &m_program;
    const Cell &m_cell;
    XService *m_service;
    bool m_isUp;
    double m_ratedCurrent = 0;
    QVector<ArcCheck> m_checks;
};

} // namespace

QVector<ArcCheck> arcChecks(const ProgramDocument &program, const Cell &cell, XService *service)
{
    return Examination(program, cell, service).run();
}

} // namespace welmo::pendant
