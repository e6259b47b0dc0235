#include "page/arcweldpage.h"

#include <QPainter>
#include <QToolButton>
#include <algorithm>

#include <kelp/registry.h>
#include <pando/frame.h>
#include <tessa/managerhelper.h>
#include <tessa/physicalbutton.h>
#include <vu/xtheme.h>

#include "adapter/hostadapter.h"
#include "data/arcweldservice.h"
#include "data/weldersetting.h"
#include "instructions/tlarcweld.h"
#include "page/handlekeys.h"
#include "page/weldmodeindicator.h"
#include "settings/devicessettingpage.h"
#include "settings/processsettingspage.h"
#include "settings/weavefunctionpage.h"
#include "settings/weldingoptionspage.h"
#include "ui_arcweldpage.h"
#include "widgets/stylerules.h"

namespace {

const QString weldModeKey = QStringLiteral("welding_options.weld_mode");
// The theme's two icon colours: on the strip's own ground, and on a checked button.
const QString plainInk = QStringLiteral("black");
const QString checkedInk = QStringLiteral("white");
const QString editedDot = QStringLiteral(":/welmo/images/ArconEdited.png");

// Says that the sub-page holds changes; a gap keeps it apart from the icon below.
void addDot(QPixmap *icon, const QPixmap &dot)
{
    QPainter painter(icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(QPointF(38, 10), 13, 13);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawPixmap(0, 0, dot);
}

} // namespace

ArcWeldPage::ArcWeldPage(QWidget *parent, QObject *owner)
    : BasePage(QStringLiteral("welmo"), tr("Arc Weld"), owner)
    , m_wgt(new QWidget(parent))
    , ui(std::make_unique<Ui::ArcWeldPage>())
    , m_keys(new welmo::HandleKeys(this))
{
    bindMobj(QStringLiteral("welmo"));
    ui->setupUi(m_wgt);
    m_wgt->setAttribute(Qt::WA_StyledBackground);
    addSubPage<DevicesSettingPage>(tr("Device Setting"), QStringLiteral("ArconDeviceSetting"));
    addSubPage<WeldingOptionsPage>(tr("Welding Options"), QStringLiteral("ArconWeldingOptions"));
    addSubPage<ProcessSettingsPage>(tr("Process Setting"), QStringLiteral("ArconProcessSetting"));
    addSubPage<WeaveFunctionPage>(tr("Weave Function"), QStringLiteral("ArconWeaveFunction"));
    for (SubPageCfg &entry : m_entries)
        createButton(entry);
    if (!m_entries.isEmpty())
        emit m_entries.first().button->clicked();
}

ArcWeldPage::~ArcWeldPage()
{
    for (const SubPageCfg &entry : qAsConst(m_entries))
        delete entry.page;
    delete m_modeIndicator;
    delete m_wgt;
}

template<typename Page>
void ArcWeldPage::addSubPage(const QString &title, const QString &icon)
{
    SubPageCfg entry;
    entry.title = title;
    entry.icon = QStringLiteral(":/welmo/images/%1.png").arg(icon);
    entry.factory = [this] { return new Page(ui->wgtContent, this); };
    m_entries.append(entry);
}

void ArcWeldPage::createButton(SubPageCfg &entry)
{
    auto *button = new QToolButton(ui->wgtNav);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    button->setMinimumSize(0, 45);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setText(entry.title);
    button->setCheckable(true);
    entry.button = button;
    paintIcon(entry, plainInk);
    ui->navLayout->addWidget(button);
    connect(button, &QToolButton::clicked, this, &ArcWeldPage::switchPage);
}

void ArcWeldPage::paintIcon(const SubPageCfg &entry, const QString &ink)
{
    QPixmap picture = vu::xtheme::pixmap(entry.icon, ink);
    if (entry.page && entry.page->isEdited())
        addDot(&picture, vu::xtheme::pixmap(editedDot, ink));
    entry.button->setIcon(picture);
}

void ArcWeldPage::switchPage()
{
    auto *button = qobject_cast<QToolButton *>(sender());
    if (button && button == m_currentButton) {
        button->setChecked(true);
        return;
    }
    const auto chosen =
        std::find_if(m_entries.begin(), m_entries.end(),
                     [button](const SubPageCfg &entry) { return entry.button == button; });
    if (chosen == m_entries.end())
        return;
    for (SubPageCfg &entry : m_entries) {
        if (entry.button != button)
            leave(entry);
    }
    show(*chosen);
    ui->wgtNav->update(); // one repaint for all changes
}

void ArcWeldPage::leave(SubPageCfg &entry)
{
    entry.button->setChecked(false);
    paintIcon(entry, plainInk);
    if (!entry.page)
        return;
    entry.page->wgt()->hide();
    if (entry.destroyWhenLeft) {
        ui->contentLayout->removeWidget(entry.page->wgt());
        delete entry.page;
        entry.page = nullptr;
    }
}

void ArcWeldPage::show(SubPageCfg &entry)
{
    if (entry.page) {
        entry.page->wgt()->show();
    } else {
        Q_ASSERT(entry.factory);
        entry.page = entry.factory();
        connect(entry.page, &BaseSubPage::editedChanged, entry.button, [this, &entry] {
            paintIcon(entry, entry.button == m_currentButton ? checkedInk : plainInk);
        });
        ui->contentLayout->addWidget(entry.page->wgt());
    }
    ui->lblTitle->setText(entry.title);
    paintIcon(entry, checkedInk);
    entry.button->setChecked(true);
    entry.page->initPage();
    entry.page->wgt()->setEnabled(isAvailable());
    m_currentButton = entry.button;
    m_currentPage = entry.page;
}

void ArcWeldPage::onJogVAddTimeOut()
{
    m_keys->onJogVAddTimeOut();
}

void ArcWeldPage::onJogVMinusTimeOut()
{
    m_keys->onJogVMinusTimeOut();
}

void ArcWeldPage::registerArcButton()
{
    m_keys->registerArcButton();
}

void ArcWeldPage::followEnableLeaf()
{
    kelp::ModuleObject *leaf = m(QStringLiteral("welmo.device.enable"));
    const auto apply = [this](const QVariant &value) {
        enableRegisterPhysicalButtons(this, welmo::HandleKeys::setName, value.toBool());
    };
    leaf->watch(true, false);
    connect(leaf, &kelp::ModuleObject::changed, this, apply);
    apply(leaf->getBool(false));
}

void ArcWeldPage::init()
{
    registerArcButton();
    followEnableLeaf();
    autoUpdate(true, true, true, false);
    connect(welmo::host::controllerManager(), &tessa::ControllerManager::rcConnected, this,
            &ArcWeldPage::reload);
    TlArcWeldDefine instructions(this); // its entries stay in the TL manager
}

void ArcWeldPage::render()
{
    welmo::applyStyleRules(m_wgt);

    addModeIndicator();
    auto *node = xservice()->watchNode(QStringLiteral("arc_weld.weld_mode"));
    connect(node, &kelp::ModuleObject::changed, this, &ArcWeldPage::onWeldModeChanged);
    // If the link came up before the page was made, no signal follows.
    if (!m_isLoaded && welmo::arcweld::isConnected())
        reload();
}

void ArcWeldPage::addModeIndicator()
{
    m_modeIndicator =
        new welmo::WeldModeIndicator; // also without a status bar, where it is never shown
    if (pando::StatusBar *bar = welmo::host::statusBar(this)) {
        bar->addBeforeItem(this, QStringLiteral("welmo.labelArcMode"),
                           QStringLiteral("orbo.body.statuspage.wgtStrech2"), m_modeIndicator);
    }
    if (m_isLoaded)
        m_modeIndicator->showPicture(mobj()->r(weldModeKey)->getString(QString()));
}

void ArcWeldPage::reload()
{
    m_isLoaded = true;
    loadFromRC();
    m_currentPage->initPage();
}

void ArcWeldPage::onWeldModeChanged(const QVariant &value)
{
    kelp::ModuleObject state(QStringLiteral("return_state"), nullptr);
    state.importFromVariant(this, value, true, true, false);
    const QString mode = state.r(QStringLiteral("mode"))->getString(QString());
    mobj()->set(this, weldModeKey, mode, true);
    if (m_modeIndicator)
        m_modeIndicator->announce(mode);
}

void ArcWeldPage::loadFromRC()
{
    const auto answer = xservice()->get(this, QStringLiteral("arc_weld.weld_mode"));
    if (!welmo::arcweld::readFailed(answer)) {
        const QString mode = answer->r(QStringLiteral("mode"))->getString(QString());
        mobj()->set(this, weldModeKey, mode, true);
        if (m_modeIndicator) // null if the link comes up before render()
            m_modeIndicator->showPicture(mode);
    }
    loadWelderSetting();
    xservice()->watch(this, QStringLiteral("arc_weld.weld_mode"), true);
    xservice()->watch(this, QStringLiteral("arc_weld.welder_state"), true);
}

void ArcWeldPage::loadWelderSetting()
{
    const auto setting = xservice()->get(this, QStringLiteral("arc_weld.welder_setting"));
    if (welmo::arcweld::readFailed(setting))
        return;
    welmo::weldersetting::keep(this, mobj(), setting);
}

void ArcWeldPage::updateAvailability()
{
    if (m_currentPage)
        m_currentPage->wgt()->setEnabled(isAvailable());
}
