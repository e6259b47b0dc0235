#pragma once

#include <QLabel>
#include <vector>

#include "pendant/window/holdsurface.h"

class QGridLayout;

namespace tessa {
class PhysicalKeys;
}

namespace welmo::pendant {

/// Twelve keys that move the robot while they are held: six axes there and back, with the place on
/// each axis between them. They are keys of the host as those of the handle are, and keep the same
/// promise: who cannot prove a hand on them moves nothing.
class JogPad : public HoldSurface
{
    Q_OBJECT
public:
    static constexpr int axisCount = 6;

    JogPad(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent);

    /// The names of the axes, and the unit of each.
    void setAxes(const QStringList &names, const QStringList &units);
    void setValue(int axis, double value);
    /// Whether a press moves anything; keys that are held get their release.
    void setUsable(bool usable);

signals:
    /// A key went down: @p axis counts from 0, @p direction is 1 or -1.
    void pressed(int axis, int direction);
    void released();

protected:
    int keyAt(const QPoint &point) const override;

private:
    void addAxis(QGridLayout *grid, int axis);
    QLabel *addKey();
    void refresh();
    int hostKey(int key) const;

    tessa::PhysicalKeys *m_keys;
    std::vector<QLabel *> m_faces; // minus and plus of each axis
    std::vector<QLabel *> m_names, m_values;
    QStringList m_units;
};

} // namespace welmo::pendant
