#include "controller/welding/weld.h"

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

QString textFor(Trouble trouble)
{
    switch (trouble) {
    case Trouble::None:
        return {};
    case Trouble::NoGas:
        return QStringLiteral("there is no gas");
    case Trouble::NoCurrent: // a file as it comes into being
        return QStringLiteral("the arc does not strike at the arc-start file's 0 A");
    case Trouble::NoArc:
        return QStringLiteral("the arc does not strike");
    case Trouble::ArcLost:
        return QStringLiteral("the arc broke");
    case Trouble::WireSticks:
        return QStringLiteral("the wire sticks");
    }
    return {};
}

} // namespace

Weld::Weld(ControllerContext &context, Registry &registry, const Welder &welder)
    : m_context(context)
    , m_welder(welder)
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

Reply Weld::openSeam(const QString &arcOnFile, const QString &weldFile, bool dry)
{
    Reply refused = dry ? Reply{} : refusal();
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
    m_alarm.clear();
    m_seam = ArcWeld::from(weld.value.toMap());
    m_dry = dry;
    if (!dry)
        m_process.start(ArcStart::from(arcOn.value.toMap()), *m_seam);
    note();
    return {};
}

Reply Weld::refusal() const
{
    if (m_welder.isInError())
        return Reply::refused(WrongState, QStringLiteral("the welder reports an error"));
    if (!m_welder.isEnabled())
        return Reply::refused(WrongState, QStringLiteral("the welder is not enabled"));
    // Nobody freed it since the last weld.
    if (m_process.trouble() == Trouble::WireSticks && m_context.suffers(Fault::WireSticks))
        return Reply::refused(WireStuck, textFor(Trouble::WireSticks));
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
    m_alarm.clear();
    m_process.interrupt();
    note();
}

void Weld::resume()
{
    if (!m_seam || m_dry)
        return;
    m_alarm.clear();
    m_process.resume();
    note();
}

void Weld::advance(double speed)
{
    m_torchSpeed = speed;
    if (m_welder.isInError() && isBusy()) {
        m_process.halt();
        raise(QStringLiteral("the welder reports an error"));
    }
    const Trouble before = m_process.trouble();
    m_process.step(conditions(), speed);
    if (m_process.trouble() != before)
        raise(textFor(m_process.trouble()));
    note();
}

WeldProcess::Conditions Weld::conditions() const
{
    const bool burns = !m_context.suffers(Fault::ArcBreaks) && !m_context.suffers(Fault::WireStuck);
    return {!m_context.suffers(Fault::NoGas), !m_context.suffers(Fault::NoArc), burns,
            m_context.suffers(Fault::WireSticks)};
}

void Weld::raise(const QString &alarm)
{
    m_alarm = alarm;
    m_context.record(Event::Alarm, alarm);
}

void Weld::note()
{
    if (m_process.phase() != m_noted) {
        m_noted = m_process.phase();
        m_context.record(Event::Weld, phaseWord());
    }
    if (m_process.isArcMissing() && !m_notedMissing)
        m_context.record(Event::Message, QStringLiteral("the arc broke, the torch moves on"));
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
    return Reply::refused(OutOfRange, QStringLiteral("there is no file \"%1\"").arg(file));
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
