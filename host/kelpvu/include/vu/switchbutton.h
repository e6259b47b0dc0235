#pragma once

#include <QAbstractButton>

/// An on/off switch painted in the theme's colours: a track with a knob that a thumb can hit.
///
/// enabled() tells a change of the state, by the user or by setChecked(); block the signals to put
/// the switch back without its handler.
class EnableButton : public QAbstractButton
{
    Q_OBJECT
public:
    explicit EnableButton(QWidget *parent = nullptr);
    QSize sizeHint() const override { return {88, 45}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void enabled(bool on);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// A push button that acts while it is held: pressed and released are told as one state. A button
/// that is disabled or hidden while it is held is released at once.
class TouchButton : public QAbstractButton
{
    Q_OBJECT
public:
    explicit TouchButton(QWidget *parent = nullptr);
    QSize sizeHint() const override { return {120, 45}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void touched(bool down);

protected:
    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;
};
