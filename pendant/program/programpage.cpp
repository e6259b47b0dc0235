#include "pendant/program/programpage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QStackedLayout>

#include "pendant/program/filekeeper.h"
#include "pendant/program/filespane.h"
#include "pendant/program/formpane.h"
#include "pendant/program/formstart.h"
#include "pendant/program/linespane.h"
#include "pendant/program/messagelist.h"
#include "pendant/program/pathpane.h"
#include "pendant/program/programcheck.h"
#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"
#include "pendant/program/runbar.h"
#include "pendant/program/runcheckpane.h"
#include "pendant/program/stepbar.h"
#include "pendant/state/cell.h"
#include "pendant/theme/look.h"
#include "schema/weldmode.h"

namespace welmo::pendant {

namespace {

constexpr int logWidth = 248;
constexpr int widthForOneRow = 860; // narrower, the state of the run has a row of its own

} // namespace

ProgramPage::ProgramPage(ProgramDocument *document, Cell *cell, RobotState *robot,
                         tessa::MessageLog *log, const QString &folder, QWidget *parent)
    : HostPage(tr("Program"), parent)
    , m_document(document)
    , m_cell(cell)
    , m_check(new ProgramCheck(document, this))
    , m_run(new ProgramRun(document, this))
    , m_lines(new LinesPane(document, m_check, m_run, this))
    , m_form(new FormPane(m_check, this))
    , m_files(new FilesPane(folder, this))
    , m_look(new RunCheckPane(this))
    , m_path(new PathPane({document, m_check, m_run, robot, cell}, this))
    , m_keeper(new FileKeeper(document, m_run, m_files, this))
{
    body()->addWidget(makeBar());
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("lblRunState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_steps = new StepBar(
        document, m_run, [this] { return m_lines->line(); }, m_lines);
    m_second = new QBoxLayout(QBoxLayout::LeftToRight);
    m_second->addWidget(m_state, 1);
    auto *second = new QHBoxLayout;
    second->addStretch(1);
    second->addWidget(m_steps);
    auto *views = new ActionBar(this);
    m_views = views;
    m_pathAction = views->add(tr("Path"), "ProgramPath", {}, this, this, &ProgramPage::togglePath);
    m_pathAction->setCheckable(true);
    second->addWidget(views);
    second->addWidget(m_lines->findings());
    second->addWidget(makeDrawer());
    m_second->addLayout(second);
    body()->addLayout(m_second);
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(makePanes(), 1);
    row->addWidget(makeLog(log));
    body()->addLayout(row, 1);
    body()->setSpacing(8);
    body()->setContentsMargins(16, 8, 16, 8); // so that twelve lines are visible
    connectPanes();
    connectRun();
    refreshTitle();
    showRun();
}

QWidget *ProgramPage::makeBar()
{
    m_top = new QWidget(this);
    auto *files = new ActionBar(this);
    m_keeper->addTo(files, m_lines);
    m_runBar = new RunBar(m_document, m_run, m_lines);
    auto *bar = new QHBoxLayout(m_top);
    bar->setContentsMargins(0, 0, 0, 0);
    bar->setSpacing(10);
    for (QWidget *group : QWidgetList{files, m_lines->bar(), m_runBar})
        bar->addWidget(group);
    bar->addStretch(1);
    m_bar = files;
    return m_top;
}

QWidget *ProgramPage::makePanes()
{
    auto *panes = new QWidget(this);
    m_panes = new QStackedLayout(panes);
    for (QWidget *pane : QWidgetList{m_lines, m_form, m_files, m_look, m_path})
        m_panes->addWidget(pane);
    return panes;
}

// The button that shows the messages beside the program.
QWidget *ProgramPage::makeDrawer()
{
    m_drawer = new QPushButton(tr("Messages"), this);
    m_drawer->setObjectName(QStringLiteral("btnProgramMessages"));
    m_drawer->setCheckable(true);
    connect(m_drawer, &QPushButton::toggled, this, &ProgramPage::makeRoom);
    return m_drawer;
}

QWidget *ProgramPage::makeLog(tessa::MessageLog *log)
{
    m_log = new QWidget(this);
    m_log->setFixedWidth(logWidth);
    auto *layout = new QVBoxLayout(m_log);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto *heading = new QLabel(tr("Messages"), m_log);
    heading->setObjectName(QStringLiteral("lblCardHeading"));
    layout->addWidget(heading);
    layout->addWidget(new MessageList(log, m_log), 1);
    return m_log;
}

void ProgramPage::connectPanes()
{
    connect(m_run, &ProgramRun::changed, this, &ProgramPage::showRun);
    connect(m_document, &ProgramDocument::titleChanged, this, &ProgramPage::refreshTitle);
    connect(m_document, &QAbstractItemModel::modelReset, m_lines, [this] { m_lines->setLine(0); });
    connect(m_lines, &LinesPane::insertWanted, this, [this](const QString &word, int line) {
        m_line = line;
        m_inserts = true;
        m_form->openInsert(word, line, lineToStartFrom(*m_document, word, line));
        showPane(m_form);
    });
    connect(m_lines, &LinesPane::editWanted, this, [this](int line) {
        m_line = line;
        m_inserts = false;
        m_form->openEdit(m_document->line(line), line, m_document->text().isFaithful(line));
        showPane(m_form);
    });
    connect(m_form, &FormPane::accepted, this, &ProgramPage::takeLine);
    connect(m_form, &FormPane::anotherWanted, this,
            [this](const QString &word) { emit m_lines->insertWanted(word, m_line + 1); });
    connect(m_form, &FormPane::closed, this, [this] {
        m_check->refreshProject(); // the form may have made a file or a point
        showPane(m_lines);
    });
    connect(m_path, &PathPane::lineWanted, this, &ProgramPage::showLine);
    connect(m_keeper, &FileKeeper::paneWanted, this, [this] { showPane(m_files); });
    connect(m_keeper, &FileKeeper::done, this, [this] { showPane(m_lines); });
}

void ProgramPage::connectRun()
{
    connect(m_runBar, &RunBar::runWanted, this, &ProgramPage::run);
    connect(m_runBar, &RunBar::lookWanted, this, &ProgramPage::look);
    connect(m_look, &RunCheckPane::closed, this, [this] { showPane(m_lines); });
    connect(m_look, &RunCheckPane::lineWanted, this, &ProgramPage::showLine);
    connect(m_look, &RunCheckPane::runWanted, this, [this] {
        showPane(m_lines);
        m_start();
    });
    connect(m_look, &RunCheckPane::runFromWanted, this, [this](int line) {
        showPane(m_lines);
        m_run->runFrom(line);
    });
    connect(m_steps, &StepBar::runWanted, this,
            [this](int line) { begin(line, [this, line] { m_run->runFrom(line); }); });
}

// A weld that was only interrupted goes on with its arc.
void ProgramPage::run()
{
    const bool isPaused = m_run->state() == ProgramRun::State::Paused;
    if (isPaused && !m_run->isStepped())
        m_run->start();
    else
        begin(isPaused ? m_run->line() : 0, [this] { m_run->start(); });
}

// If the program strikes an arc, what is wrong with its files or with the line is shown first.
void ProgramPage::begin(int line, const std::function<void()> &start)
{
    const bool strikes = m_cell->mode() == QLatin1String(schema::weldmode::real);
    if (!strikes || m_look->look(m_check->uses(), seamStartAt(*m_document, line)))
        return start();
    m_start = start;
    m_look->offerRun(true);
    showPane(m_look);
}

void ProgramPage::look()
{
    m_look->look(m_check->uses());
    m_look->offerRun(false);
    showPane(m_look);
}

void ProgramPage::takeLine(const QString &text)
{
    if (m_inserts)
        m_line = m_document->insertLines(m_line, text.split(QLatin1Char('\n')));
    else if (m_document->line(m_line) != text)
        m_document->setLine(m_line, text);
    m_lines->setLine(m_line);
}

void ProgramPage::showPane(QWidget *pane)
{
    m_panes->setCurrentWidget(pane);
    const bool showsProgram = pane == m_lines || pane == m_path;
    m_bar->setEnabled(showsProgram);
    m_lines->bar()->setEnabled(pane == m_lines);
    m_runBar->setStartable(showsProgram);
    emit roomWanted(pane == m_form);
    m_steps->setStartable(showsProgram);
    m_pathAction->setChecked(pane == m_path);
    m_pathAction->setEnabled(showsProgram);
    makeRoom();
    if (pane == m_lines)
        m_lines->setFocus();
}

void ProgramPage::togglePath()
{
    showPane(m_pathAction->isChecked() ? static_cast<QWidget *>(m_path) : m_lines);
}

// A form gets all the room, so that it need not scroll below an alarm, except that a running
// program must have its stop button.
void ProgramPage::makeRoom()
{
    const bool hasForm = m_panes->currentWidget() == m_form;
    const bool hasTools = !hasForm || m_run->isUnderWay();
    showTitle(!hasForm);
    m_log->setVisible(!hasForm && m_drawer->isChecked());
    for (QWidget *tool :
         QWidgetList{m_top, m_state, m_steps, m_views, m_lines->findings(), m_drawer})
        tool->setVisible(hasTools);
}

void ProgramPage::runExample(const QString &name)
{
    const auto open = [this, name] {
        m_keeper->openExample(name);
        run();
    };
    if (!m_run->isUnderWay() && mayGo(open))
        open();
}

void ProgramPage::showLine(int line)
{
    if (m_panes->currentWidget() == m_form)
        return; // the form that is open has priority
    showPane(m_lines);
    m_lines->setLine(line);
}

bool ProgramPage::mayGo(const std::function<void()> &goOn)
{
    return m_keeper->mayGo(goOn);
}

void ProgramPage::showRun()
{
    m_state->setText(m_run->text());
    m_state->setToolTip(m_run->text());
    placeState();
    setStyleWord(m_state, "state", m_run->endedBadly() ? QStringLiteral("failed") : QString());
    makeRoom();
}

void ProgramPage::refreshTitle()
{
    const QString changed = m_document->isModified() ? tr(" (changed)") : QString();
    setTitle(tr("Program: %1").arg(m_document->title()) + changed);
}

void ProgramPage::resizeEvent(QResizeEvent *event)
{
    HostPage::resizeEvent(event);
    placeState();
}

// The button that welds again leaves little room beside it.
void ProgramPage::placeState()
{
    const bool isNarrow = width() < widthForOneRow || !m_run->reweldPlace().isEmpty();
    m_second->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void ProgramPage::showEvent(QShowEvent *event)
{
    HostPage::showEvent(event);
    m_check->refreshProject();
}

} // namespace welmo::pendant
