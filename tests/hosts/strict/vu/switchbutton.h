#pragma once

#include <QAbstractButton>

class EnableButton : public QAbstractButton
{
    Q_OBJECT
public:
    explicit EnableButton(QWidget *parent);
    void paintEvent(QPaintEvent *event) override;

signals:
    void enabled(bool on);
};

class TouchButton : public QAbstractButton
{
public:
    explicit TouchButton(QWidget *parent);
    void paintEvent(QPaintEvent *event) override;
};
