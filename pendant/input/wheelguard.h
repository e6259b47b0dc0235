#pragma once

#include <QObject>

namespace welmo::pendant {

/// Keeps the wheel from changing a field that the pointer merely passes over: it acts only on the
/// focused field, and never on a closed combo box. Otherwise the page scrolls. Works in the whole
/// application.
class WheelGuard : public QObject
{
    Q_OBJECT
public:
    explicit WheelGuard(QObject *parent = nullptr);

    bool eventFilter(QObject *object, QEvent *event) override;
};

} // namespace welmo::pendant
