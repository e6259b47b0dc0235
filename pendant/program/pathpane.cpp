#include "pendant/program/pathpane.h"

#include <QLabel>
#include <QVBoxLayout>
#include <cmath>

#include "pendant/program/hostreader.h"
#include "pendant/program/pathview.h"
#include "pendant/program/programcheck.h"
#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"
#include "pendant/state/cell.h"
#include "pendant/state/robotstate.h"
#include "schema/names.h"
#include "tessa/xservice.h"
#include "tl/parse.h"

namespace welmo::pendant {

namespace {

QString minutes(double seconds)
{
    const int whole = int(std::lround(seconds));
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

PathPane::PathPane(const PathParts &parts, QWidget *parent)
    : QFrame(parent)
    , m_parts(parts)
    , m_view(new PathView(this))
    , m_sums(new QLabel(this))
    , m_files(new QLabel(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    m_sums->setObjectName(QStringLiteral("lblPathSums"));
    m_sums->setWordWrap(true);
    m_files->setObjectName(QStringLiteral("lblPathFiles"));
    m_files->setTextFormat(Qt::RichText);
    layout->addWidget(m_sums);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_files);
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &PathPane::plan);
    const auto soon = [this] {
        if (isVisible())
            m_soon.start(200);
    };
    connect(parts.document, &ProgramDocument::contentsChanged, this, soon);
    connect(parts.check, &ProgramCheck::checked, this, soon);
    connect(parts.document, &QAbstractItemModel::modelReset, m_view, &PathView::clearBead);
    connect(parts.robot, &RobotState::changed, this, &PathPane::follow);
    connect(parts.cell, &Cell::changed, this, &PathPane::follow);
    connect(m_view, &PathView::lineTouched, this, &PathPane::lineWanted);
}

void PathPane::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    xservice()->watch(this, names::welderState, true);
    plan();
    follow();
}

// While a program runs, the path begins where the robot was before the run.
void PathPane::plan()
{
    std::vector<tl::ParsedLine> lines;
    QSet<int> wrong;
    for (int row = 0; row < m_parts.document->rowCount(); ++row) {
        lines.push_back(tl::parse(m_parts.document->line(row)));
        if (m_parts.check->isWrong(row))
            wrong.insert(row);
    }
    if (!m_parts.run->isUnderWay() || !m_hasStart) {
        m_start = m_parts.robot->joints();
        m_hasStart = m_parts.robot->isKnown();
    }
    const auto plan = controller::ProgramPlan::make(HostReader(), lines, m_start);
    m_view->setPlan(plan, wrong);
    const QString sums =
        tr("Expected: %1 min, arc %2 min, seams %3 mm, wire %4 m")
            .arg(minutes(plan.seconds), minutes(plan.arcSeconds),
                 QString::number(plan.seamLength, 'f', 0), QString::number(plan.wire, 'f', 1));
    QStringList failed;
    for (const int line : plan.failed)
        failed.append(QString::number(line + 1));
    m_sums->setText(failed.isEmpty() ? sums
                                     : tr("%1; without what cannot be carried out: line %2")
                                           .arg(sums, failed.join(QStringLiteral(", "))));
    m_sums->setToolTip(m_sums->text());
    showFiles(plan);
}

void PathPane::showFiles(const controller::ProgramPlan &plan)
{
    QStringList files;
    for (const auto &leg : plan.legs) {
        if (leg.isSeam && !files.contains(leg.file))
            files.append(leg.file);
    }
    QStringList words;
    for (const QString &file : qAsConst(files))
        words.append(QStringLiteral("<span style=\"color:%1\">━━</span> %2")
                         .arg(PathView::colourOf(file).name(), file.toHtmlEscaped()));
    words.append(tr("dashed: without an arc"));
    m_files->setText(words.join(QStringLiteral(" &nbsp; ")));
}

void PathPane::follow()
{
    const bool isUnderWay = m_parts.run->isUnderWay();
    if (isUnderWay && !m_wasUnderWay)
        m_view->clearBead();
    m_wasUnderWay = isUnderWay;
    if (m_parts.robot->isKnown())
        m_view->setTorch({m_parts.robot->value("tip.x"), m_parts.robot->value("tip.y"),
                          m_parts.robot->value("tip.z")},
                         burns());
}

// The cell welds until the seam ends, even without its arc.
bool PathPane::burns() const
{
    const auto *state = xservice()->watchNode(names::welderState);
    return m_parts.cell->state() == Cell::State::Welding
        && state->r(QStringLiteral("current"))->getDouble() > 0;
}

} // namespace welmo::pendant
