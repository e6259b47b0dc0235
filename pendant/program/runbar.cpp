#include "pendant/program/runbar.h"

#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"

namespace welmo::pendant {

RunBar::RunBar(ProgramDocument *document, ProgramRun *run, QWidget *page)
    : ActionBar(page)
    , m_document(document)
    , m_run(run)
    , m_look(addIcon(QStringLiteral("look"), tr("Files"), "ProgramLook", {}, page, this,
                     &RunBar::lookWanted))
    , m_start(addIcon(QStringLiteral("run"), tr("Run"), "ProgramRun", QStringLiteral("Ctrl+R"),
                      page, this, &RunBar::runWanted))
    , m_pause(addIcon(QStringLiteral("pause"), tr("Pause"), "ProgramPause", {}, page, run,
                      &ProgramRun::pause))
    , m_stop(addIcon(QStringLiteral("stop"), tr("Stop"), "ProgramStop", {}, page, run,
                     &ProgramRun::stop))
{
    connect(run, &ProgramRun::changed, this, &RunBar::refresh);
    connect(document, &ProgramDocument::contentsChanged, this, &RunBar::refresh);
    refresh();
}

void RunBar::setStartable(bool startable)
{
    m_startable = startable;
    refresh();
}

void RunBar::refresh()
{
    using State = ProgramRun::State;
    const State state = m_run->state();
    const bool isThere = state != State::Unknown;
    m_start->setText(state == State::Paused ? tr("Go on") : tr("Run"));
    m_start->setEnabled(m_startable && isThere && state != State::Running
                        && m_document->rowCount() > 0);
    m_look->setEnabled(m_startable);
    m_pause->setEnabled(state == State::Running);
    m_stop->setEnabled(isThere || m_run->isUnderWay()); // also while the state is unknown
}

} // namespace welmo::pendant
