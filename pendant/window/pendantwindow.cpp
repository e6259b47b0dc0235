#include "pendant/window/pendantwindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "pando/frame.h"
#include "pendant/state/cell.h"
#include "pendant/state/jogspeed.h"
#include "pendant/state/linkbadge.h"
#include "pendant/state/navigation.h"
#include "pendant/theme/look.h"
#include "pendant/window/alarmbanner.h"
#include "pendant/window/headerbar.h"
#include "pendant/window/keycolumn.h"
#include "pendant/window/keyholds.h"
#include "pendant/window/lockline.h"
#include "pendant/window/messageline.h"
#include "pendant/window/navpanel.h"
#include "tessa/host.h"
#include "vu/stylesheet.h"

namespace welmo::pendant {

namespace {

constexpr QSize windowSize{1280, 800};
constexpr QSize smallestSize{1024, 640};
constexpr int sideBarWidth = 360;
// Modules insert their items before this one.
const QString stretchItem = QStringLiteral("orbo.body.statuspage.wgtStrech2");

} // namespace

PendantWindow::PendantWindow(tessa::Host *host, kelp::ModuleObject *entries,
                             const WindowState &state, KeyHolds *holds)
{
    tessa::ManagerHelper *helper = host->helper();
    setObjectName(QStringLiteral("pndWindow"));
    setAttribute(Qt::WA_StyledBackground);
    setWindowTitle(tr("Pendant"));
    resize(windowSize);
    // Set before there are children, so that each is styled only once.
    setRecursiveWidgetStyleSheet(
        this,
        helper->themeManager()->genStyleSheet(QStringLiteral(":/pendant/render/pendant.json")));
    setMinimumSize(smallestSize);
    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // a page must not enlarge the window
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new HeaderBar(helper->status(), state.cell, state.link, state.place, this));
    layout->addWidget(makeStrip(state.cell));
    auto *banner = new AlarmBanner(state.alarms, state.cell, this);
    connect(banner, &AlarmBanner::lineWanted, this, &PendantWindow::lineWanted);
    connect(banner, &AlarmBanner::reasonWanted, this, [this] { showPage(arcCheckKey); });
    layout->addWidget(makeBody(host, holds, entries, makeStatus(helper, state), banner), 1);
    pando::frame() = {m_center, m_side, m_status};
}

PendantWindow::~PendantWindow()
{
    delete m_column; // deleted before the pages, which remove keys that it follows
    pando::frame() = {};
}

QWidget *PendantWindow::makeBody(tessa::Host *host, KeyHolds *holds, kelp::ModuleObject *entries,
                                 QWidget *status, QWidget *banner)
{
    tessa::PhysicalKeys *keys = host->keys();
    holds->follow(keys, this);
    auto *row = new QWidget(this);
    m_nav = new NavPanel(entries, row);
    m_center = new pando::CenterWidget(row);
    m_center->setObjectName(QStringLiteral("pndCenter"));
    m_side = new pando::ExpandSideBar(row);
    m_side->setObjectName(QStringLiteral("pndSide"));
    m_side->setPageWidth(sideBarWidth);
    m_side->addBar(makeSideHead());
    connect(m_side, &pando::ExpandSideBar::opened, m_nav, &NavPanel::setNarrow);
    connect(m_side, &pando::ExpandSideBar::opened, this, [this](bool opened) {
        for (QWidget *item : qAsConst(m_spare))
            item->setVisible(!opened);
    });
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // The side bar takes the whole height, so the status bar ends beside it.
    auto *places = new QGridLayout;
    places->setSpacing(0);
    auto *lock = new LockLine(host->helper()->status(), row);
    places->addWidget(m_nav, 0, 0, 2, 1);
    places->addWidget(lock, 0, 1);
    places->addWidget(m_center, 1, 1);
    places->addWidget(status, 2, 0, 1, 2);
    places->setColumnStretch(1, 1);
    places->setRowStretch(1, 1);
    // The keys keep their place when a banner comes or goes: a second touch on "Acknowledge" must
    // not meet one. Nor does the side bar lose any height.
    auto *besideKeys = new QGridLayout;
    besideKeys->setSpacing(0);
    besideKeys->addWidget(banner, 0, 0);
    besideKeys->addLayout(places, 1, 0);
    besideKeys->addWidget(m_side, 0, 1, 2, 1);
    besideKeys->setColumnStretch(0, 1);
    besideKeys->setRowStretch(1, 1);
    layout->addLayout(besideKeys, 1);
    // At the edge, so that pages and side bars do not move the keys away from the operator's right
    // hand.
    m_column = new KeyColumn(keys, holds, this);
    layout->addWidget(m_column);
    connect(m_nav, &NavPanel::chosen, this, &PendantWindow::showPage);
    connect(m_center, &pando::CenterWidget::pageShown, m_nav, &NavPanel::setCurrent);
    connect(m_center, &pando::CenterWidget::pageShown, lock, &LockLine::setPage);
    return row;
}

// A head with a close button, which the package's panel does not have.
QWidget *PendantWindow::makeSideHead()
{
    auto *head = new QWidget(m_side);
    head->setObjectName(QStringLiteral("pndSideHead"));
    auto *why = new QPushButton(tr("Why is there no arc?"), head);
    why->setObjectName(QStringLiteral("btnSideWhy"));
    connect(why, &QPushButton::clicked, this, [this] { showPage(arcCheckKey); });
    auto *close = new QPushButton(tr("Close"), head);
    close->setObjectName(QStringLiteral("btnSideClose"));
    connect(close, &QPushButton::clicked, m_side, &QWidget::hide);
    auto *row = new QHBoxLayout(head);
    row->setContentsMargins(8, 1, 8, 0);
    row->addWidget(why);
    row->addStretch(1);
    row->addWidget(close);
    return head;
}

// A strip that can be seen from afar: its colour says that the next run strikes an arc.
QWidget *PendantWindow::makeStrip(Cell *cell)
{
    auto *strip = new QFrame(this);
    strip->setObjectName(QStringLiteral("pndModeStrip"));
    strip->setFixedHeight(6);
    const auto follow = [strip, cell] { setStyleWord(strip, "mode", cell->mode()); };
    connect(cell, &Cell::changed, strip, follow);
    follow();
    return strip;
}

QWidget *PendantWindow::makeStatus(tessa::ManagerHelper *helper, const WindowState &state)
{
    m_status = new pando::StatusBar(this);
    m_status->setObjectName(QStringLiteral("pndStatus"));
    m_status->setFixedHeight(48);
    m_status->layout()->setContentsMargins(20, 0, 20, 0);
    m_status->layout()->setSpacing(20);
    auto *message = new MessageLine(helper->log(), m_status);
    connect(message, &MessageLine::touched, this, [this] { showPage(messagesKey); });
    m_status->addItem(this, QStringLiteral("pendant.message"), message, 1);
    // The message takes the remaining width, so that items before the stretch do not move.
    m_status->addItem(this, stretchItem, new QWidget(m_status));
    addModeText(state.cell);
    addHandFacts(state.cell, state.jog);
    auto *badge = new LinkBadge(state.link, m_status);
    badge->setFixedWidth(LinkBadge::fixedWidth);
    m_status->addItem(this, QStringLiteral("pendant.link"), badge);
    m_spare.append(badge);
    return m_status;
}

// The weld mode in words, beside the package's picture of it.
void PendantWindow::addModeText(Cell *cell)
{
    auto *label = new QLabel(m_status);
    label->setObjectName(QStringLiteral("lblModeText"));
    const auto follow = [label, cell] { label->setText(cell->modeText()); };
    connect(cell, &Cell::changed, label, follow);
    follow();
    m_status->addItem(this, QStringLiteral("pendant.mode"), label);
    m_spare.append(label);
}

void PendantWindow::makeRoom(bool wanted)
{
    if (wanted) {
        m_sideWaits = !m_side->isHidden();
        m_side->hide();
    } else if (std::exchange(m_sideWaits, false)) {
        m_side->show();
    }
}

// Shows the values that the handle's keys change.
void PendantWindow::addHandFacts(Cell *cell, JogSpeed *jog)
{
    auto *label = new QLabel(m_status);
    label->setObjectName(QStringLiteral("lblHandFacts"));
    const auto follow = [label, cell, jog] {
        label->setText(
            tr("Jog %1 %   %2   %3")
                .arg(QString::number(jog->percent()), cell->gasText(), cell->wireText()));
    };
    connect(cell, &Cell::changed, label, follow);
    connect(jog, &JogSpeed::changed, label, follow);
    follow();
    m_status->addItem(this, QStringLiteral("pendant.hand"), label);
}

void PendantWindow::setCount(const QString &key, int count)
{
    m_nav->setCount(key, count);
}

bool PendantWindow::showPage(const QString &key)
{
    return m_center->switchTo(key);
}

void PendantWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!m_closeGuard || m_closeGuard());
}

} // namespace welmo::pendant
