#pragma once

#include <QWidget>

class QTouchEvent;

namespace welmo::pendant {

class KeyHolds;

/// A widget that shows keys. A key stays down until the button or finger that pressed it is lifted,
/// even outside the key: a thumb may roll over its edge.
class HoldSurface : public QWidget
{
    Q_OBJECT
public:
    HoldSurface(KeyHolds *holds, QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    /// The host's key at that place; -1 for none.
    virtual int keyAt(const QPoint &point) const = 0;

private:
    void onTouch(const QTouchEvent *event);

    KeyHolds *m_holds;
};

} // namespace welmo::pendant
