#pragma once

#include <QVariantMap>
#include <array>

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

class Weld;
class Welder;

/// The node "arc_weld.welder_state": {state, phase, welding_name, program, line and user of the
/// seam, current A, voltage V, welding_speed mm/s, welding_time min, welding_distance mm,
/// welding_wire_used m}.
///
/// Words are notified when they change, numbers at the rate of the node
/// "arc_weld.welder_state_rate" {rate}, 10 to 500 a second. A notification holds what changed;
/// current and voltage come together.
class WelderState : public Subsystem
{
public:
    WelderState(ControllerContext &context, Registry &registry, const Welder &welder,
                const Weld &weld);

    Reply start() override;
    void tick() override;
    bool isBusy() const override;
    int paceMs() const override { return 1000 / m_rate; }

private:
    using Words = std::array<QVariant, 6>;
    using Numbers = std::array<double, 9>;

    Words words() const;
    Numbers numbers() const;
    void completePair(QVariantMap &news) const;
    Reply setRate(const QVariant &payload);

    ControllerContext &m_context;
    const Welder &m_welder;
    const Weld &m_weld;
    int m_rate = 50; // notifications a second
    Words m_toldWords;
    Numbers m_toldNumbers{};
    qint64 m_toldAt = 0;
};

} // namespace welmo::controller
