#pragma once

#include <QLabel>
#include <vector>

#include "pendant/window/holdsurface.h"

class QGridLayout;

namespace tessa {
class PhysicalKeys;
}

namespace welmo::pendant {

/// Twelve keys that move the robot while they are held: two for each of six axes, with the position
/// on the axis between them. They are keys of the host like those of the handle, under the same
/// rule: without proof that a key is held nothing moves.
class JogPad : public HoldSurface
{
    Q_OBJECT
public:
    static constexpr int axisCount = 6;

    JogPad(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent);

    /// Sets the axes' names and units.
    void setAxes(const QStringList &names, const QStringList &units);
    void setValue(int axis, double value);
    /// Whether a press moves anything; if not, held keys are released.
    void setUsable(bool usable);

signals:
    /// A key was pressed: @p axis counts from 0, @p direction is 1 or -1.
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
    std::vector<QLabel *> m_faces; // minus and plus key of each axis
    std::vector<QLabel *> m_names, m_values;
    QStringList m_units;
};

} // namespace welmo::pendant
