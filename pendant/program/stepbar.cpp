#include "pendant/program/stepbar.h"

#include <QToolButton>

#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"

namespace welmo::pendant {

StepBar::StepBar(ProgramDocument *document, ProgramRun *run, std::function<int()> chosen,
                 QWidget *page)
    : ActionBar(page)
    , m_document(document)
    , m_run(run)
    , m_chosen(std::move(chosen))
    , m_reweld(add(QString(), "Reweld", {}, page, run, &ProgramRun::reweld))
    , m_fromHere(addIcon(QStringLiteral("from_here"), tr("Run from here"), "RunFromHere",
                         QStringLiteral("Ctrl+Shift+R"), page, this, &StepBar::runFromHere))
    , m_back(addIcon(QStringLiteral("step_back"), tr("Step back"), "StepBack",
                     QStringLiteral("Shift+F10"), page, run, &ProgramRun::stepBack))
    , m_step(addIcon(QStringLiteral("step"), tr("Step"), "Step", Qt::Key_F10, page, this,
                     &StepBar::step))
{
    m_fromHere->setToolTip(tr("Within a seam there is no arc until the next ArcOn"));
    m_step->setToolTip(tr("One line, without an arc"));
    connect(run, &ProgramRun::changed, this, &StepBar::refresh);
    connect(document, &ProgramDocument::contentsChanged, this, &StepBar::refresh);
    refresh();
}

void StepBar::setStartable(bool startable)
{
    m_startable = startable;
    refresh();
}

void StepBar::runFromHere()
{
    emit runWanted(m_chosen());
}

void StepBar::step()
{
    m_run->step(m_chosen());
}

void StepBar::refresh()
{
    using State = ProgramRun::State;
    const State state = m_run->state();
    const bool mayMove = m_startable && state != State::Unknown && state != State::Running
        && m_document->rowCount() > 0;
    m_fromHere->setEnabled(mayMove);
    m_step->setEnabled(mayMove);
    m_back->setEnabled(mayMove && state == State::Paused);
    const QString place = m_run->reweldPlace();
    m_reweld->setEnabled(mayMove && !place.isEmpty());
    // A button outside a tool bar does not hide with its action.
    findChild<QToolButton *>(QStringLiteral("btnReweld"))->setVisible(!place.isEmpty());
    m_reweld->setText(tr("Re-weld from %1 mm").arg(place));
}

} // namespace welmo::pendant
