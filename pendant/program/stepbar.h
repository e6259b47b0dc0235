#pragma once

#include <functional>

#include "pendant/program/actionbar.h"

namespace welmo::pendant {

class ProgramDocument;
class ProgramRun;

/// Runs parts of the program: from the chosen line, single lines forwards and backwards, and a seam
/// again where it lacks its arc.
class StepBar : public ActionBar
{
    Q_OBJECT
public:
    /// @p chosen returns the chosen line, counted from 0.
    StepBar(ProgramDocument *document, ProgramRun *run, std::function<int()> chosen, QWidget *page);

    /// @p startable is false while a form is open, since the program may change.
    void setStartable(bool startable);

signals:
    /// The program is to run from the line, counted from 0.
    void runWanted(int line);

private:
    void runFromHere();
    void step();
    void refresh();

    ProgramDocument *m_document;
    ProgramRun *m_run;
    std::function<int()> m_chosen;
    bool m_startable = true;
    QAction *m_reweld;
    QAction *m_fromHere;
    QAction *m_back;
    QAction *m_step;
};

} // namespace welmo::pendant
