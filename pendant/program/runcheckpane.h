#pragma once

#include <QFrame>

class QLabel;
class QPushButton;
class QTableWidget;

namespace welmo::pendant {

class FileUses;

/// What a program will weld with: its files, their content, and what is wrong with them.
class RunCheckPane : public QFrame
{
    Q_OBJECT
public:
    explicit RunCheckPane(QWidget *parent);

    /// Reads every file again; true if nothing is wrong with any.
    bool look(const FileUses &uses);
    /// If @p mayRun, shows a button that runs the program.
    void offerRun(bool mayRun);

signals:
    void runWanted();
    /// The operator wants to see the line, counted from 0.
    void lineWanted(int line);
    void closed();

private:
    void addRow(const QStringList &cells, int line, bool isWrong);
    void refreshHeading();

    QLabel *m_heading;
    QTableWidget *m_table;
    QPushButton *m_run;
    int m_findings = 0;
};

} // namespace welmo::pendant
