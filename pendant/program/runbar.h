#pragma once

#include "pendant/program/actionbar.h"

namespace welmo::pendant {

class ProgramDocument;
class ProgramRun;

/// Pauses and stops the program, and says that it is to be run or looked through.
class RunBar : public ActionBar
{
    Q_OBJECT
public:
    RunBar(ProgramDocument *document, ProgramRun *run, QWidget *page);

    /// False while a line is being edited: the program is not what it is going to be.
    void setStartable(bool startable);

signals:
    void runWanted();
    /// Somebody wants to see what the program is going to weld with.
    void lookWanted();

private:
    void refresh();

    ProgramDocument *m_document;
    ProgramRun *m_run;
    bool m_startable = true;
    QAction *m_look;
    QAction *m_start;
    QAction *m_pause;
    QAction *m_stop;
};

} // namespace welmo::pendant
