#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace welmo::pendant {

class AlarmList;
class Cell;

/// Shows alarms under the header of every page until they are acknowledged, and a link that was
/// lost during a run.
class AlarmBanner : public QFrame
{
    Q_OBJECT
public:
    AlarmBanner(AlarmList *alarms, Cell *cell, QWidget *parent = nullptr);

signals:
    /// @p line is counted from 1.
    void lineWanted(const QString &program, int line);
    void reasonWanted();

private:
    QPushButton *addButton(const QString &name, const QString &text);
    void refresh();
    void showLost();
    void showAlarms();

    AlarmList *m_alarms;
    Cell *m_cell;
    QLabel *m_text;
    QPushButton *m_line;
    QPushButton *m_why;
    QPushButton *m_acknowledge;
};

} // namespace welmo::pendant
