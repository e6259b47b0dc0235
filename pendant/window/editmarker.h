#pragma once

#include <QObject>

class QWidget;

namespace welmo::pendant {

/// Draws what a package marks as edited, by the property "edited": a field carries a bar along its
/// left edge, the button that saves it a frame. Lives as long as the application.
class EditMarker : public QObject
{
    Q_OBJECT
public:
    explicit EditMarker(QObject *parent = nullptr);
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace welmo::pendant
