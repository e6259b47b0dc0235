#include "controller/welding/weld.h"

#include <cmath>
#include <utility>

#include "controller/core/fields.h"
#include "controller/files/parameterfiles.h"
#include "controller/welding/welder.h"
#include "schema/names.h"

using Event = welmo::controller::Journal::Event;
using Fault = welmo::controller::Faults::Fault;
using Phase = welmo::controller::WeldProcess::Phase;
using Trouble = welmo::controller::WeldProcess::Trouble;

namespace welmo::controller {

namespace {

const QString nameKey = QStringLiteral("name");

QString wordFor(Phase phase)
{
    switch (phase) {
    case Phase::Idle:
        return QStringLiteral("idle");
    case Phase::PreFlow:
        return QStringLiteral("pre_flow");
    case Phase::Ignition:
        return QStringLiteral("ignition");
    case Phase::Welding:
        return QStringLiteral("welding");
    case Phase::Crater:
        return QStringLiteral("crater");
    case Phase::PostFlow:
        return QStringLiteral("post_flow");
    }
    return {};
}

Reason reasonFor(Trouble trouble)
{
    switch (trouble) {
    case Trouble::None:
        return {};
    case Trouble::NoGas:
        return {QStringLiteral("no_gas")};
    case Trouble::NoCurrent: // as in a new file
        return {QStringLiteral("no_current")};
    case Trouble::NoArc:
        return {QStringLiteral("no_arc")};
    case Trouble::ArcLost:
        return {QStringLiteral("arc_lost")};
    case Trouble::WireSticks:
        return {QStringLiteral("wire_sticks")};
    }
    return {};
}

Reply noFile(const QString &file)
{
    return refusedFor(OutOfRange, {QStringLiteral("no_file"), {file}},
                      QStringLiteral("there is no file \"%1\"").arg(file));
}

} // namespace

Weld::Weld(ControllerContext &context, Registry &registry, const Welder &welder, Alarms &alarms)
    : m_context(context)
    , m_welder(welder)
    , m_alarms(alarms)
{
    registry.addCommand(names::enableWeldParam,
                        [this](const Request &request) { return enable(request.payload); });
    listenTo(schema::arcOn(), m_arcOnFile, &Weld::trimStart);
    listenTo(schema::weld(), m_weldFile, &Weld::trimWeld);
    listenTo(schema::arcOff(), m_arcOffFile, &Weld::trimEnd);
}

void Weld::listenTo(const schema::FileSet &set, const QString &used,
                    void (Weld::*trim)(const QVariantMap &))
{
    m_context.listen(set.node(), [this, &used, trim](const QVariant &files) {
        const QVariant saved = files.toMap().value(used);
        if (saved.isValid())
            (this->*trim)(saved.toMap());
    });
}

Reply Weld::openSeam(const QString &arcOnFile, const QString &weldFile, Arc arc)
{
    Reply refused = arc == Arc::Real ? refusal() : Reply{};
    if (!refused.ok())
        return refused;
    Reply arcOn = load(schema::arcOn(), arcOnFile);
    if (!arcOn.ok())
        return arcOn;
    Reply weld = load(schema::weld(), weldFile);
    if (!weld.ok())
        return weld;
    m_arcOnFile = arcOnFile;
    m_weldFile = weldFile;
    m_arcOffFile.clear();
    m_alarm = {};
    m_counted = m_again.has_value() && arc != Arc::None;
    m_seam = ArcWeld::from(weld.value.toMap());
    m_seamPlace = m_alarms.place();
    m_arc = arc;
    if (arc != Arc::None)
        m_process.start(ArcStart::from(arcOn.value.toMap()), *m_seam);
    note();
    return {};
}

Reply Weld::refusal() const
{
    if (m_welder.isInError())
        return refusedFor(WrongState, {QStringLiteral("welder_error")},
                          QStringLiteral("the welder reports an error"));
    if (!m_welder.isEnabled())
        return refusedFor(WrongState, {QStringLiteral("welder_disabled")},
                          QStringLiteral("the welder is not enabled"));
    if (!m_welder.isConnected())
        return refusedFor(WrongState, {QStringLiteral("welder_not_connected")},
                          QStringLiteral("no actual welder is connected"));
    // The wire still sticks from the last weld.
    if (m_process.trouble() == Trouble::WireSticks && m_context.suffers(Fault::WireSticks))
        return refusedFor(WireStuck, reasonFor(Trouble::WireSticks),
                          QStringLiteral("the wire sticks"));
    return {};
}

Reply Weld::closeSeam(const QString &arcOffFile)
{
    Reply arcOff = load(schema::arcOff(), arcOffFile);
    if (!arcOff.ok())
        return arcOff;
    m_seam.reset();
    m_arcOffFile = arcOffFile;
    if (isWelding())
        m_process.finish(ArcEnd::from(arcOff.value.toMap()));
    note();
    return {};
}

void Weld::abandon()
{
    m_seam.reset();
    m_alarm = {};
    m_process.interrupt();
    note();
}

void Weld::resume()
{
    if (!m_seam || m_arc == Arc::None)
        return;
    m_alarm = {};
    m_process.resume();
    note();
}

void Weld::returned()
{
    m_alarms.raise({QStringLiteral("arc_restruck"), {distance()}}, m_weldFile);
    m_process.returned();
}

void Weld::advance(double speed)
{
    m_torchSpeed = speed;
    const QString file = fileName();
    if (m_arc == Arc::Real && m_welder.isInError() && isBusy()) {
        m_process.halt();
        raise({QStringLiteral("welder_error")}, file);
    }
    const Trouble before = m_process.trouble();
    const Tally countedBefore = counters();
    m_process.step(conditions(), speed);
    count(countedBefore);
    if (m_process.trouble() == Trouble::ArcLost && before != Trouble::ArcLost)
        raise(arcLoss(), file);
    else if (m_process.trouble() != before && m_process.trouble() != Trouble::None)
        raise(reasonFor(m_process.trouble()), file);
    note();
}

// The counts of the present weld.
Weld::Tally Weld::counters() const
{
    const welmo::controller::Arc &arc = m_process.arc();
    return {0, arc.distance(), arc.minutes(), arc.wireUsed()};
}

void Weld::count(const Tally &before)
{
    if (!isBusy())
        return;
    const Tally now = counters();
    m_tally.welded += now.welded - before.welded;
    m_tally.arcMinutes += now.arcMinutes - before.arcMinutes;
    m_tally.wire += now.wire - before.wire;
    if (m_process.phase() != Phase::Welding)
        return;
    m_tally.welded -= std::exchange(m_again, std::nullopt).value_or(0);
    if (!std::exchange(m_counted, true))
        ++m_tally.seams;
}

// Rounded to tenths of a millimetre, as it is shown.
double Weld::distance() const
{
    return std::round(m_process.arc().distance() * 10) / 10;
}

Reason Weld::arcLoss() const
{
    if (m_context.suffers(Fault::WireStuck))
        return {QStringLiteral("wire_stuck"), {distance()}};
    return {QStringLiteral("arc_lost"), {distance()}};
}

// A simulated arc has no faults.
WeldProcess::Conditions Weld::conditions() const
{
    if (m_arc == Arc::Simulated)
        return {};
    const bool burns = !m_context.suffers(Fault::ArcBreaks) && !m_context.suffers(Fault::WireStuck);
    return {!m_context.suffers(Fault::NoGas), !m_context.suffers(Fault::NoArc), burns,
            m_context.suffers(Fault::WireSticks)};
}

void Weld::raise(const Reason &alarm, const QString &file)
{
    m_alarm = alarm;
    m_alarms.raise(alarm, file);
    m_context.record(Event::Alarm, alarm.code);
}

void Weld::note()
{
    if (m_process.phase() != m_noted) {
        m_noted = m_process.phase();
        m_context.record(Event::Weld, phaseWord());
    }
    if (m_process.isArcMissing() && !m_notedMissing) {
        m_context.record(Event::Message, QStringLiteral("the arc broke, the torch moves on"));
        m_alarms.raise(arcLoss(), m_weldFile);
    }
    m_notedMissing = m_process.isArcMissing();
}

bool Weld::isWelding() const
{
    return isBusy() && m_process.phase() != Phase::PostFlow;
}

bool Weld::holdsTorch() const
{
    return isWelding() && m_process.phase() != Phase::Welding;
}

QString Weld::phaseWord() const
{
    return wordFor(m_process.phase());
}

QString Weld::fileName() const
{
    switch (m_process.phase()) {
    case Phase::PreFlow:
    case Phase::Ignition:
        return m_arcOnFile;
    case Phase::Crater:
        return m_arcOffFile;
    default:
        return m_weldFile;
    }
}

Reply Weld::load(const schema::FileSet &set, const QString &file) const
{
    Reply stored = set.hasFile(file) ? m_context.load(set.node(), file) : Reply{};
    if (!stored.ok() || stored.value.isValid())
        return stored;
    return noFile(file);
}

Reply Weld::enable(const QVariant &payload)
{
    if (m_welder.isInError())
        return Reply::refused(WrongState, QStringLiteral("the welder reports an error"));
    Reply wanted = checkedFile(schema::weld(), payload);
    if (!wanted.ok())
        return wanted;
    m_weldFile = childAt(wanted.value, nameKey).toString();
    trimWeld(wanted.value.toMap());
    return {};
}

void Weld::trimWeld(const QVariantMap &file)
{
    const ArcWeld data = ArcWeld::from(file);
    if (m_seam)
        m_seam = data;
    m_process.trim(data);
}

} // namespace welmo::controller
