#include "pendant/window/alarmbanner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "pendant/state/alarms.h"
#include "pendant/state/cell.h"

namespace welmo::pendant {

AlarmBanner::AlarmBanner(AlarmList *alarms, Cell *cell, QWidget *parent)
    : QFrame(parent)
    , m_alarms(alarms)
    , m_cell(cell)
    , m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("pndAlarm"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(20, 6, 12, 6);
    layout->setSpacing(10);
    layout->addWidget(m_text, 1);
    m_text->setObjectName(QStringLiteral("lblAlarm"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_line = addButton(QStringLiteral("btnAlarmLine"), tr("Show line"));
    m_why = addButton(QStringLiteral("btnAlarmWhy"), tr("Why?"));
    m_acknowledge = addButton(QStringLiteral("btnAlarmAcknowledge"), tr("Acknowledge"));
    connect(m_line, &QPushButton::clicked, this, [this] {
        const Alarm newest = m_alarms->open().value(m_alarms->open().size() - 1);
        emit lineWanted(newest.program, newest.line);
    });
    connect(m_why, &QPushButton::clicked, this, &AlarmBanner::reasonWanted);
    connect(m_acknowledge, &QPushButton::clicked, alarms, &AlarmList::acknowledgeAll);
    connect(alarms, &AlarmList::changed, this, &AlarmBanner::refresh);
    connect(cell, &Cell::changed, this, &AlarmBanner::refresh);
    refresh();
}

QPushButton *AlarmBanner::addButton(const QString &name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    layout()->addWidget(button);
    return button;
}

void AlarmBanner::refresh()
{
    const bool isLost = m_cell->lostAt().isValid();
    const bool any = !m_alarms->open().isEmpty();
    if (isLost)
        showLost();
    else if (any)
        showAlarms();
    setVisible(isLost || any);
}

void AlarmBanner::showLost()
{
    m_text->setText(tr("Link lost %1: the robot may still weld, use the emergency stop")
                        .arg(m_cell->lostAt().toString(QStringLiteral("HH:mm:ss"))));
    m_line->hide();
    m_acknowledge->hide();
}

void AlarmBanner::showAlarms()
{
    const QVector<Alarm> open = m_alarms->open();
    const QString line =
        tr("%1  %2").arg(open.last().time.toString(QStringLiteral("HH:mm:ss")), open.last().text());
    m_text->setText(open.size() > 1 ? tr("%1, and %2 more").arg(line).arg(open.size() - 1) : line);
    m_line->setVisible(open.last().line > 0);
    m_acknowledge->show();
}

} // namespace welmo::pendant
