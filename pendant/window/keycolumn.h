#pragma once

#include <QMap>

#include "pendant/window/holdsurface.h"

class QVBoxLayout;

namespace tessa {
class PhysicalKeys;
}

namespace welmo::pendant {

class HandleKey;

/// The pendant's physical keys as a column at the window's edge, visible on every page, and hidden
/// while no package has registered any.
class KeyColumn : public HoldSurface
{
    Q_OBJECT
public:
    /// @p holds is to follow the same keys.
    KeyColumn(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent);

protected:
    int keyAt(const QPoint &point) const override;

private:
    void rebuild();
    void refresh();

    tessa::PhysicalKeys *m_keys;
    QVBoxLayout *m_layout;
    QMap<int, HandleKey *> m_faces; // by the key's number
};

} // namespace welmo::pendant
