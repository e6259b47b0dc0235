#pragma once

#include <QGroupBox>
#include <QLabel>

// Plain widgets for the classes that the package's forms contain: what uic made, and six cells for
// the rows of six cells.

class RawArconGroup : public QGroupBox
{
public:
    explicit RawArconGroup(QWidget *parent = nullptr);
};

class RawWeldGroup : public QGroupBox
{
public:
    explicit RawWeldGroup(QWidget *parent = nullptr);
};

class RawArcoffGroup : public QGroupBox
{
public:
    explicit RawArcoffGroup(QWidget *parent = nullptr);
};

class RawPointCells : public QWidget
{
public:
    explicit RawPointCells(QWidget *parent);
    void setTitle(const QString &title) { m_title->setText(title); }
    void showHeader();

protected:
    void addCell(int index, QWidget *cell);

private:
    QLabel *m_title;
};

class RawPointRow : public RawPointCells
{
public:
    explicit RawPointRow(QWidget *parent);
};

class RawPointReadout : public RawPointCells
{
public:
    explicit RawPointReadout(QWidget *parent);
};

class RawPointEdit : public QWidget
{
public:
    explicit RawPointEdit(QWidget *parent);
};
