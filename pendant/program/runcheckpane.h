#pragma once

#include <QFrame>

#include "pendant/program/seamstart.h"

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

    /// Reads every file again; true if nothing is wrong with any, nor with where the run starts.
    bool look(const FileUses &uses, const std::optional<SeamStart> &start = {});
    /// If @p mayRun, shows a button that runs the program, and one that goes back to where the arc
    /// is struck that would be missing.
    void offerRun(bool mayRun);

signals:
    void runWanted();
    /// @p line counts from 0.
    void runFromWanted(int line);
    /// The operator wants to see the line, counted from 0.
    void lineWanted(int line);
    void closed();

private:
    void addFiles(const FileUses &uses);
    void addRow(const QStringList &cells, int line, bool isWrong);
    void refreshHeading();

    QLabel *m_heading;
    QTableWidget *m_table;
    QPushButton *m_run;
    QPushButton *m_approach;
    std::optional<SeamStart> m_start;
    int m_findings = 0;
};

} // namespace welmo::pendant
