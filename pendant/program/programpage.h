#pragma once

#include <functional>

#include "pendant/pages/hostpage.h"

class QAction;
class QBoxLayout;
class QPushButton;
class QStackedLayout;

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

class Cell;
class FileKeeper;
class FilesPane;
class FormPane;
class LinesPane;
class PathPane;
class ProgramCheck;
class ProgramDocument;
class ProgramRun;
class RobotState;
class RunBar;
class RunCheckPane;
class StepBar;

/// The program editor: the lines, the forms of their instructions, the files, and running the
/// program, with the message log beside it.
class ProgramPage : public HostPage
{
    Q_OBJECT
public:
    /// The document outlives the page, which is made anew for another language. @p folder holds the
    /// pendant's own programs.
    ProgramPage(ProgramDocument *document, Cell *cell, RobotState *robot, tessa::MessageLog *log,
                const QString &folder, QWidget *parent = nullptr);

    /// See FileKeeper::mayGo().
    bool mayGo(const std::function<void()> &goOn);
    /// Opens the example and runs it, once no change would be lost.
    void runExample(const QString &name);
    /// Chooses the line, unless a form is open.
    void showLine(int line);

signals:
    /// A form needs the whole width, or no longer does.
    void roomWanted(bool wanted);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *makeBar();
    QWidget *makeDrawer();
    QWidget *makePanes();
    QWidget *makeLog(tessa::MessageLog *log);
    void connectPanes();
    void connectRun();
    void run();
    void begin(int line, const std::function<void()> &start);
    void look();
    void takeLine(const QString &text);
    void showPane(QWidget *pane);
    void togglePath();
    void makeRoom();
    void showRun();
    void placeState();
    void refreshTitle();

    ProgramDocument *m_document;
    const Cell *m_cell;
    ProgramCheck *m_check;
    ProgramRun *m_run;
    LinesPane *m_lines;
    FormPane *m_form;
    FilesPane *m_files;
    RunCheckPane *m_look;
    PathPane *m_path;
    FileKeeper *m_keeper;
    QStackedLayout *m_panes = nullptr;
    QWidget *m_top = nullptr;
    QWidget *m_bar = nullptr;
    QWidget *m_views = nullptr;
    QAction *m_pathAction = nullptr;
    RunBar *m_runBar = nullptr;
    StepBar *m_steps = nullptr;
    QBoxLayout *m_second = nullptr; // the row below the tools
    QLabel *m_state = nullptr;
    QWidget *m_log = nullptr;
    QPushButton *m_drawer = nullptr;
    int m_line = 0; // the line that the form is for
    bool m_inserts = false;
    std::function<void()> m_start; // the run that waits for the operator's answer
};

} // namespace welmo::pendant
