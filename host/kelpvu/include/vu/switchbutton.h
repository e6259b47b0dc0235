#pragma once

#include <QAbstractButton>

/// An on/off switch painted in the theme's colours: a track with a knob large enough for a thumb.
///
/// enabled() is emitted when the state changes, by the user or by setChecked(); block the signals
/// to change the state without its handler.
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

/// A push button that acts while it is held: pressed and released are emitted as one state. If it
/// is disabled or hidden while held, it is released at once.
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
