#include "pendant/window/headerbar.h"

#include <QHBoxLayout>
#include <QLabel>

#include "pendant/state/cell.h"
#include "pendant/state/leveltext.h"
#include "pendant/state/linkbadge.h"
#include "pendant/state/linkcontrol.h"
#include "pendant/theme/look.h"
#include "tessa/controllerstatus.h"
#include "vu/switchbutton.h"

namespace welmo::pendant {

using tessa::ControllerStatus;

HeaderBar::HeaderBar(ControllerStatus *status, Cell *cell, LinkControl *link, const QString &place,
                     QWidget *parent)
    : QWidget(parent)
    , m_status(status)
    , m_cell(cell)
    , m_link(link)
    , m_place(place)
{
    setObjectName(QStringLiteral("pndHeader"));
    setAttribute(Qt::WA_StyledBackground);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(20, 4, 12, 4);
    layout->setSpacing(10);
    auto *name = new QLabel(tr("Welding cell"), this);
    name->setObjectName(QStringLiteral("lblCell"));
    layout->addWidget(name);
    m_user = new QLabel(this);
    m_user->setObjectName(QStringLiteral("lblUser"));
    m_user->setTextFormat(Qt::PlainText);
    layout->addWidget(m_user);
    layout->addStretch(1);
    m_mode = addChip(QStringLiteral("lblMode"), tr("Weld mode"));
    m_state = addChip(QStringLiteral("lblState"), tr("State of the cell"));
    layout->addSpacing(8);
    auto *badge = new LinkBadge(link, this);
    badge->setFixedWidth(LinkBadge::fixedWidth);
    layout->addWidget(badge);
    m_switch = new EnableButton(this);
    m_switch->setObjectName(QStringLiteral("btnLink"));
    m_switch->setToolTip(tr("Link to the controller"));
    layout->addWidget(m_switch);
    connect(m_switch, &EnableButton::enabled, link, &LinkControl::setWanted);
    connect(link, &LinkControl::changed, this, &HeaderBar::refresh);
    connect(cell, &Cell::changed, this, &HeaderBar::refresh);
    connect(status, &ControllerStatus::levelChanged, this, &HeaderBar::refresh);
    refresh();
}

QLabel *HeaderBar::addChip(const QString &name, const QString &tip)
{
    auto *chip = new QLabel(this);
    chip->setObjectName(name);
    chip->setToolTip(tip);
    chip->setMinimumWidth(128); // wide enough for every word, so that nothing moves
    chip->setAlignment(Qt::AlignCenter);
    layout()->addWidget(chip);
    return chip;
}

void HeaderBar::refresh()
{
    m_user->setText(m_place.isEmpty() ? levelText(m_status->level()) : m_place);
    m_mode->setText(m_cell->modeText());
    m_mode->setVisible(!m_cell->mode().isEmpty());
    setStyleWord(m_mode, "mode", m_cell->mode());
    m_state->setText(m_cell->text());
    setStyleWord(m_state, "cell", m_cell->word());
    const QSignalBlocker blocker(m_switch);
    m_switch->setChecked(m_link->isWanted());
}

} // namespace welmo::pendant
