#pragma once

#include "pendant/program/actionbar.h"

namespace welmo::pendant {

class ProgramDocument;
class ProgramRun;

/// Runs, pauses and stops the program.
class RunBar : public ActionBar
{
    Q_OBJECT
public:
    RunBar(ProgramDocument *document, ProgramRun *run, QWidget *page);

    /// False while a line is being edited: the program is not what it is going to be.
    void setStartable(bool startable);

private:
    void refresh();

    ProgramDocument *m_document;
    ProgramRun *m_run;
    bool m_startable = true;
    QAction *m_start;
    QAction *m_pause;
    QAction *m_stop;
};

} // namespace welmo::pendant
