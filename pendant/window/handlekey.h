#pragma once

#include <QFrame>

#include "tessa/physicalbutton.h"

class QLabel;

namespace welmo::pendant {

/// The face of one handle key: picture, label and its function key. It only shows; its column
/// handles the touches.
class HandleKey : public QFrame
{
    Q_OBJECT
public:
    HandleKey(const tessa::PhysicalButton &button, const QString &hint, QWidget *parent);

    void show(bool enabled, bool held);

private:
    QLabel *addLabel(const QString &name, const QString &text);

    QIcon m_unpressed;
    QIcon m_pressed;
    QLabel *m_hint;
    QLabel *m_picture;
    QLabel *m_label;
};

} // namespace welmo::pendant
