#pragma once

#include "pendant/program/actionbar.h"

namespace welmo::pendant {

class ProgramDocument;
class ProgramRun;

/// The buttons that pause and stop the program, and those that ask to run it or to look through it.
class RunBar : public ActionBar
{
    Q_OBJECT
public:
    RunBar(ProgramDocument *document, ProgramRun *run, QWidget *page);

    /// @p startable is false while a form is open, since the program may change.
    void setStartable(bool startable);

signals:
    void runWanted();
    /// The operator wants to see what the program will weld with.
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
