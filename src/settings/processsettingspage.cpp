#include "settings/processsettingspage.h"

#include "data/arcweldservice.h"
#include "data/report.h"
#include "ui_processsettingspage.h"

// An alias only, since welmo has a namespace Ui of its own.
namespace arcweld = welmo::arcweld;
namespace names = welmo::names;
namespace parameterfile = welmo::parameterfile;
namespace report = welmo::report;
namespace schema = welmo::schema;
using welmo::FileForm;

namespace {

// Sets the form up before the groups are listed.
std::unique_ptr<Ui::ProcessSettingsPage> setUp(QWidget *widget)
{
    auto ui = std::make_unique<Ui::ProcessSettingsPage>();
    ui->setupUi(widget);
    return ui;
}

} // namespace

ProcessSettingsPage::ProcessSettingsPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("process setting"), tr("Process Setting"), owner)
    , ui(setUp(wgt()))
    , m_groups(this, {ui->gbx_arconParam, ui->gbx_weldParam, ui->gbx_arcoffParam})
{
    setObjectName(name());
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
}

void ProcessSettingsPage::initControl()
{
    m_groups.initUI(this);
    ui->gbx_weldParam->enableButton()->show();
}

void ProcessSettingsPage::initConnect()
{
    connect(ui->gbx_weldParam->enableButton(), &QPushButton::clicked, this,
            &ProcessSettingsPage::onEnableButtonClicked);
    // The chosen device has welder parameters of its own.
    connect(xservice()->watchNode(names::deviceParam), &kelp::ModuleObject::changed, this,
            [this] { getWelderParamRange(); });
}

void ProcessSettingsPage::initPage()
{
    if (!arcweld::isConnected())
        return;
    xservice()->watch(this, names::deviceParam, true);
    getWelderParamRange();
    m_groups.reload();
}

void ProcessSettingsPage::removeArconParam(const QList<int> &numbers)
{
    parameterfile::handleRemoveParam(this, schema::arcOn(), numbers);
}

void ProcessSettingsPage::removeWeldParam(const QList<int> &numbers)
{
    parameterfile::handleRemoveParam(this, schema::weld(), numbers);
}

void ProcessSettingsPage::removeArcoffParam(const QList<int> &numbers)
{
    parameterfile::handleRemoveParam(this, schema::arcOff(), numbers);
}

void ProcessSettingsPage::onParamFileNumberChanged(int)
{
    m_groups.selectFile(sender());
}

void ProcessSettingsPage::onSaveButtonClicked()
{
    m_groups.save(sender());
}

void ProcessSettingsPage::onCancelButtonClicked()
{
    m_groups.cancel(sender());
}

void ProcessSettingsPage::onArconLeadTimeEditFinished()
{
    ui->gbx_arconParam->onArconLeadTimeEditFinished();
}

void ProcessSettingsPage::onArcBreakOptionChanged(int index)
{
    ui->gbx_weldParam->onArcBreakOptionChanged(index);
}

void ProcessSettingsPage::onArconFoldButtonClicked()
{
    ui->gbx_arconParam->onFoldButtonClicked();
}

void ProcessSettingsPage::onWeldFoldButtonClicked()
{
    ui->gbx_weldParam->onFoldButtonClicked();
}

void ProcessSettingsPage::onArcoffFoldButtonClicked()
{
    ui->gbx_arcoffParam->onFoldButtonClicked();
}

void ProcessSettingsPage::onEnableButtonClicked()
{
    if (!report::requireConnection(this))
        return;
    if (arcweld::welderState(this) == QLatin1String("error")) {
        report::error(this, tr("welder state error"));
        return;
    }
    if (!weld().holdsChosenFile()) {
        report::error(this, tr("enable error"));
        return;
    }
    storeWeldParam();
    if (xservice()->execCommand(nullptr, names::enableWeldParam, weld().data())->getInt(0) != 0)
        report::error(this, tr("enable error"));
    else
        report::info(this, tr("enable succeed"));
}
