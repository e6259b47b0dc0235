#include "settings/processsettingspage.h"

#include "data/controller.h"
#include "data/report.h"
#include "ui_processsettingspage.h"

using namespace welmo;

namespace {
const QString deviceParamNode = QStringLiteral("arc_weld.device_param");
}

ProcessSettingsPage::ProcessSettingsPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("process setting"), tr("Process Setting"), owner)
    , ui(std::make_unique<Ui::ProcessSettingsPage>())
{
    setObjectName(name());
    ui->setupUi(wgt());
    initUI();
}

ProcessSettingsPage::~ProcessSettingsPage() = default;

FileForm &ProcessSettingsPage::arcon()
{
    return ui->gbx_arconParam->file();
}

FileForm &ProcessSettingsPage::weld()
{
    return ui->gbx_weldParam->file();
}

FileForm &ProcessSettingsPage::arcoff()
{
    return ui->gbx_arcoffParam->file();
}

void ProcessSettingsPage::initUI()
{
    initControl();
    initConnect();
    initParamValue();
}

void ProcessSettingsPage::initControl()
{
    ui->gbx_arconParam->initUI(this);
    ui->gbx_weldParam->initUI(this);
    ui->gbx_arcoffParam->initUI(this);
    ui->gbx_weldParam->enableButton()->show();
}

void ProcessSettingsPage::initConnect()
{
    for (ProcessGroup *group : std::initializer_list<ProcessGroup *>{
             ui->gbx_arconParam, ui->gbx_weldParam, ui->gbx_arcoffParam}) {
        connect(group->file().combo(), qOverload<int>(&QComboBox::currentIndexChanged), this,
                &ProcessSettingsPage::onParamFileNumberChanged);
        connect(group->saveButton(), &QPushButton::clicked, this,
                &ProcessSettingsPage::onSaveButtonClicked);
        connect(group->cancelButton(), &QPushButton::clicked, this,
                &ProcessSettingsPage::onCancelButtonClicked);
    }
    connect(ui->gbx_weldParam->enableButton(), &QPushButton::clicked, this,
            &ProcessSettingsPage::onEnableButtonClicked);
    // The welder's own parameters change with the device that is chosen.
    connect(xservice()->watchNode(deviceParamNode), &kelp::ModuleObject::changed, this,
            [this] { getWelderParamRange(); });
}

void ProcessSettingsPage::initParamValue()
{
    arcon().start();
    weld().start();
    arcoff().start();
}

void ProcessSettingsPage::initPage()
{
    if (!controller::isConnected())
        return;
    xservice()->watch(this, deviceParamNode, true);
    getWelderParamRange();
    selectArconFileNum();
    selectWeldFileNum();
    selectArcoffFileNum();
}

void ProcessSettingsPage::useDefaultNode()
{
    useArconDefaultNode();
    useWeldDefaultNode();
    useArcoffDefaultNode();
}

void ProcessSettingsPage::getParamFromTessa()
{
    getArconParam();
    getWeldParam();
    getArcoffParam();
}

void ProcessSettingsPage::getWelderParamRange()
{
    if (!controller::isConnected())
        return;
    const auto limits = WelderLimits::read(this);
    if (!limits)
        return;
    ui->gbx_arconParam->applyWelder(*limits);
    ui->gbx_weldParam->applyWelder(*limits);
    ui->gbx_arcoffParam->applyWelder(*limits);
}

void ProcessSettingsPage::removeArconParam(const QList<int> &numbers)
{
    parameterfile::handleRemoveParam(this, sets::arcon(), numbers);
}

void ProcessSettingsPage::removeWeldParam(const QList<int> &numbers)
{
    parameterfile::handleRemoveParam(this, sets::weld(), numbers);
}

void ProcessSettingsPage::removeArcoffParam(const QList<int> &numbers)
{
    parameterfile::handleRemoveParam(this, sets::arcoff(), numbers);
}

void ProcessSettingsPage::onParamFileNumberChanged(int)
{
    if (!controller::isConnected()) {
        report::warning(this, tr("tessa not connected"));
        return;
    }
    if (sender() == arcon().combo())
        selectArconFileNum();
    else if (sender() == weld().combo())
        selectWeldFileNum();
    else if (sender() == arcoff().combo())
        selectArcoffFileNum();
}

void ProcessSettingsPage::onSaveButtonClicked()
{
    if (!controller::isConnected()) {
        report::error(this, tr("tessa is not connected"));
        return;
    }
    int result = 0;
    if (sender() == ui->gbx_arconParam->saveButton())
        result = saveArconParam();
    else if (sender() == ui->gbx_weldParam->saveButton())
        result = saveWeldParam();
    else if (sender() == ui->gbx_arcoffParam->saveButton())
        result = saveArcoffParam();
    if (result != 0)
        report::error(this, tr("save parameter error"));
    else
        report::info(this, tr("save parameter succeed"));
}

void ProcessSettingsPage::onCancelButtonClicked()
{
    if (sender() == ui->gbx_arconParam->cancelButton())
        setArconParam();
    else if (sender() == ui->gbx_weldParam->cancelButton())
        setWeldParam();
    else if (sender() == ui->gbx_arcoffParam->cancelButton())
        setArcoffParam();
}

void ProcessSettingsPage::onEnableButtonClicked()
{
    if (!controller::isConnected()) {
        report::error(this, tr("tessa is not connected"));
        return;
    }
    if (controller::welderState(this) == QLatin1String("error")) {
        report::error(this, tr("welder state error"));
        return;
    }
    if (!weld().holdsChosenFile()) {
        report::error(this, tr("enable error"));
        return;
    }
    storeWeldParam();
    const QString command = controller::node(QStringLiteral("enable_weld_param"));
    if (xservice()->execCommand(this, command, weld().data())->getInt(0) != 0)
        report::error(this, tr("enable error"));
    else
        report::info(this, tr("enable succeed"));
}
