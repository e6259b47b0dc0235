#pragma once

#include <QObject>

class QWidget;

namespace welmo::pendant {

/// Marks what a package says is edited, by the property "edited": a field gets a bar along its left
/// edge, the button that saves it a frame. Works in the whole application.
class EditMarker : public QObject
{
    Q_OBJECT
public:
    explicit EditMarker(QObject *parent = nullptr);
    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace welmo::pendant
