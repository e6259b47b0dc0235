#include "pendant/window/headerbar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>

#include "pendant/state/linkbadge.h"
#include "pendant/state/linkcontrol.h"
#include "pendant/theme/look.h"
#include "tessa/controllerstatus.h"
#include "vu/switchbutton.h"

namespace welmo::pendant {

using tessa::ControllerStatus;

namespace {

// The combo's rows stand in the order of the enumeration.
template<typename Value>
void bind(QComboBox *combo, ControllerStatus *status, void (ControllerStatus::*set)(Value))
{
    QObject::connect(combo, qOverload<int>(&QComboBox::activated), status,
                     [status, set](int row) { (status->*set)(static_cast<Value>(row)); });
}

template<typename Value>
void choose(QComboBox *combo, Value value)
{
    combo->setCurrentIndex(static_cast<int>(value));
}

} // namespace

HeaderBar::HeaderBar(ControllerStatus *status, LinkControl *link, QWidget *parent)
    : QWidget(parent)
    , m_status(status)
    , m_link(link)
{
    setObjectName(QStringLiteral("pndHeader"));
    setAttribute(Qt::WA_StyledBackground);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(20, 8, 12, 8);
    layout->setSpacing(10);
    auto *cell = new QLabel(tr("Welding cell"), this);
    cell->setObjectName(QStringLiteral("lblCell"));
    layout->addWidget(cell);
    layout->addStretch(1);
    m_state = addSelector(QStringLiteral("cbxState"), tr("State of the cell"),
                          {tr("Idle"), tr("Running"), tr("Fault")});
    m_mode = addSelector(QStringLiteral("cbxMode"), tr("Operating mode"),
                         {tr("Manual"), tr("Automatic")});
    m_power =
        addSelector(QStringLiteral("cbxPower"), tr("Power"), {tr("Power off"), tr("Power on")});
    m_level = addSelector(QStringLiteral("cbxLevel"), tr("User level"),
                          {tr("Viewer"), tr("Operator"), tr("Programmer"), tr("Administrator")});
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
    followStatus();
    refresh();
}

QComboBox *HeaderBar::addSelector(const QString &name, const QString &tip, const QStringList &texts)
{
    auto *combo = new QComboBox(this);
    combo->setObjectName(name);
    combo->setToolTip(tip);
    combo->setAccessibleName(tip);
    combo->setView(new QListView(combo));
    combo->addItems(texts);
    layout()->addWidget(combo);
    return combo;
}

void HeaderBar::followStatus()
{
    bind(m_state, m_status, &ControllerStatus::setState);
    bind(m_mode, m_status, &ControllerStatus::setMode);
    bind(m_power, m_status, &ControllerStatus::setPower);
    bind(m_level, m_status, &ControllerStatus::setLevel);
    for (auto signal : {&ControllerStatus::stateChanged, &ControllerStatus::modeChanged,
                        &ControllerStatus::powerChanged, &ControllerStatus::levelChanged})
        connect(m_status, signal, this, &HeaderBar::refresh);
}

void HeaderBar::refresh()
{
    choose(m_state, m_status->state());
    choose(m_mode, m_status->mode());
    choose(m_power, m_status->power());
    choose(m_level, m_status->level());
    const bool fault = m_status->state() == ControllerStatus::State::Fault;
    setStyleWord(m_state, "alarm", fault ? QStringLiteral("on") : QStringLiteral("off"));
    const QSignalBlocker blocker(m_switch);
    m_switch->setChecked(m_link->isWanted());
}

} // namespace welmo::pendant
