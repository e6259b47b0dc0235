#pragma once

#include <functional>

#include "pendant/program/actionbar.h"

namespace welmo::pendant {

class ProgramDocument;
class ProgramRun;

/// Runs parts of the program: from the chosen line, line by line there and back, and once more
/// where a seam lacks its arc.
class StepBar : public ActionBar
{
    Q_OBJECT
public:
    /// @p chosen tells the chosen line, counted from 0.
    StepBar(ProgramDocument *document, ProgramRun *run, std::function<int()> chosen, QWidget *page);

    /// False while a line is being edited: the program is not what it is going to be.
    void setStartable(bool startable);

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
