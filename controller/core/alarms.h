#pragma once

#include <vector>

#include "controller/core/controllercontext.h"
#include "controller/core/reason.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// A line of a program, counted from 1; 0 and an empty name while no program runs.
struct ProgramPlace
{
    QString program;
    int line = 0;
    QString user = {}; ///< who started it
};

/// What ended or harmed a weld, kept in the store also after it was acknowledged.
///
/// The node "cell.alarms" holds {entries}, oldest first: {id, code, arguments, time, program, line,
/// file, open}. The time is UTC, ISO 8601; line counts from 1, 0 for none. The command
/// "cell.alarms.acknowledge" takes {id}, or nothing for all of them.
class Alarms : public Subsystem
{
public:
    static constexpr size_t capacity = 50; ///< the oldest are dropped

    Alarms(ControllerContext &context, Registry &registry);

    Reply start() override;

    /// Sets the program line to which later alarms belong.
    void setPlace(const ProgramPlace &place) { m_place = place; }
    const ProgramPlace &place() const { return m_place; }
    /// @p file is the parameter file in use, if it matters.
    void raise(const Reason &reason, const QString &file = {});

    bool anyOpen() const;
    bool isOpen(const Reason &reason) const;
    /// The alarms since forgetRun(), as {code, arguments, line}.
    const QVariantList &ofRun() const { return m_ofRun; }
    void forgetRun() { m_ofRun.clear(); }

private:
    Reply acknowledge(const QVariant &payload);
    QVariantMap node() const;
    void keep(const std::vector<QVariantMap> &changed);

    ControllerContext &m_context;
    std::vector<QVariantMap> m_entries;
    QVariantList m_ofRun;
    ProgramPlace m_place;
    int m_nextId = 1;
};

} // namespace welmo::controller
