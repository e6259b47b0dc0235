#pragma once

#include <QObject>

namespace welmo::pendant {

/// Keeps the wheel from changing what it merely passes over: no field that has not the focus, and
/// never a closed combo box. The page below scrolls instead. Follows the whole application.
class WheelGuard : public QObject
{
    Q_OBJECT
public:
    explicit WheelGuard(QObject *parent = nullptr);

    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace welmo::pendant
