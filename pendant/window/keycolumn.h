#pragma once

#include <QList>
#include <QWidget>

class QTouchEvent;
class QVBoxLayout;

namespace tessa {
class PhysicalKeys;
}

namespace welmo::pendant {

class HandleKey;
class KeyHolds;

/// The pendant's physical keys as a column at the window's edge, there whatever page is shown, and
/// hidden while no package has registered any. A key stays down until the button or finger that
/// pressed it is lifted, wherever that is by then: a thumb may roll over a key's edge.
class KeyColumn : public QWidget
{
    Q_OBJECT
public:
    /// @p holds follows the same keys.
    KeyColumn(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void onTouch(const QTouchEvent *event);
    int keyAt(const QPoint &point) const;
    void rebuild();
    void refresh();

    tessa::PhysicalKeys *m_keys;
    KeyHolds *m_holds;
    QVBoxLayout *m_layout;
    QList<HandleKey *> m_faces;
};

} // namespace welmo::pendant
