#include "book/pages/trendpage.h"

#include <QLabel>
#include <QVBoxLayout>

#include "book/keeper/bookkeeper.h"
#include "book/pages/courseplot.h"
#include "book/pages/words.h"

namespace welmo::book {

namespace {

constexpr int spanSeconds = 60;

} // namespace

TrendPage::TrendPage(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_head(makeLabel({}, "head", this))
    , m_plot(new CoursePlot(this))
{
    auto *panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("wgtPanel"));
    panel->setAttribute(Qt::WA_StyledBackground);
    m_head->setObjectName(QStringLiteral("lblTrend"));
    auto *inside = new QVBoxLayout(panel);
    inside->setContentsMargins(16, 8, 16, 12);
    inside->addWidget(m_head);
    inside->addWidget(m_plot, 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(panel);
    m_plot->clear();
    m_plot->setSpan(-spanSeconds, 0);
    m_pace.setInterval(1000 / Course::fullRate);
    connect(&m_pace, &QTimer::timeout, this, &TrendPage::sample);
    connect(keeper, &Bookkeeper::told, this, [this] {
        if (m_keeper->recorder().isBusy() && !m_pace.isActive())
            m_pace.start();
    });
    draw();
}

void TrendPage::sample()
{
    if (!m_keeper || !m_keeper->recorder().isBusy()) {
        m_pace.stop();
    } else {
        m_strip.append(m_keeper->recorder().actual());
        if (m_strip.size() > spanSeconds * Course::fullRate)
            m_strip.removeFirst();
    }
    if (isVisible())
        draw();
}

void TrendPage::draw()
{
    const bool runs = m_keeper && m_keeper->recorder().isBusy();
    if (runs) {
        const Seam &seam = m_keeper->recorder().seam();
        const QString place = seam.program.isEmpty()
            ? Words::notTold()
            : tr("%1, line %2").arg(seam.program).arg(seam.lastLine);
        m_head->setText(QStringLiteral("%1  ·  %2").arg(place, Words::text(seam.weldFile)));
        m_plot->setLimits(m_keeper->recorder().judge().limits());
        m_plot->setSetValues(seam);
    } else {
        m_head->setText(m_strip.isEmpty() ? tr("No weld is running.")
                                          : tr("No weld is running; the last minute of arc:"));
    }
    const Course course{Course::fullRate, m_strip};
    m_plot->setCourse(course, -double(m_strip.size()) / Course::fullRate);
    m_plot->replot();
}

void TrendPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    draw();
}

} // namespace welmo::book
