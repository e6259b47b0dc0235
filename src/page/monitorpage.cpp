#include "page/monitorpage.h"

#include <QPushButton>

#include "data/report.h"
#include "schema/processsets.h"
#include "ui_monitorpage.h"
#include "widgets/stylerules.h"

namespace schema = welmo::schema;

namespace {

const char *const stepProperty = "step";

// The set that a data name belongs to; the first word that it contains decides.
const schema::FileSet &setOf(const QString &name)
{
    static const schema::FileSet none({}, {}, {}, schema::FileSet::Removal::None);
    if (name.contains(QLatin1String("arcon")))
        return schema::arcOn();
    if (name.contains(QLatin1String("arcdata")))
        return schema::weld();
    if (name.contains(QLatin1String("arcoff")))
        return schema::arcOff();
    return none;
}

} // namespace

MonitorPage::MonitorPage(QWidget *parent, QObject *owner)
    : BasePage(QStringLiteral("monitor"), tr("Welding Monitoring"), owner)
    , m_wgt(new QWidget(parent))
    , ui(std::make_unique<Ui::MonitorPage>())
{
    setObjectName(name());
    ui->setupUi(m_wgt);
    using Slot = void (MonitorPage::*)();
    const auto steps = [this](QPushButton *button, int step, Slot slot) {
        button->setProperty("func", "humble");
        button->setProperty(stepProperty, step);
        connect(button, &QPushButton::clicked, this, slot);
    };
    connect(xservice()->watchNode(QStringLiteral("arc_weld.welder_state")),
            &kelp::ModuleObject::changed, this, &MonitorPage::onWelderStateChanged);
    steps(ui->btnCurrentSub10, -10, &MonitorPage::onChangeCurrentClicked);
    steps(ui->btnCurrentSub1, -1, &MonitorPage::onChangeCurrentClicked);
    steps(ui->btnCurrentAdd1, 1, &MonitorPage::onChangeCurrentClicked);
    steps(ui->btnCurrentAdd10, 10, &MonitorPage::onChangeCurrentClicked);
    steps(ui->btnVoltageSub10, -10, &MonitorPage::onChangeVoltageClicked);
    steps(ui->btnVoltageSub1, -1, &MonitorPage::onChangeVoltageClicked);
    steps(ui->btnVoltageAdd1, 1, &MonitorPage::onChangeVoltageClicked);
    steps(ui->btnVoltageAdd10, 10, &MonitorPage::onChangeVoltageClicked);
    connect(ui->btnSave, &QPushButton::clicked, this, &MonitorPage::onSaveClicked);
    connect(ui->ledtWeldingName, &QLineEdit::textChanged, this, &MonitorPage::onWeldingNameChanged);
    followLink();
    followForms();
}

MonitorPage::~MonitorPage()
{
    delete m_wgt;
}

// What was told last may not hold any more.
void MonitorPage::followLink()
{
    const auto show = [this](bool connected) {
        ui->gbxActualValue->setEnabled(connected);
        ui->gbxAdvancedMonitoring->setEnabled(connected);
    };
    kelp::ModuleObject *leaf = welmo::host::serviceTree()->c(QStringLiteral("connected"), true);
    leaf->watch(true, false);
    connect(leaf, &kelp::ModuleObject::changed, this,
            [show](const QVariant &value) { show(value.toBool()); });
    show(welmo::arcweld::isConnected());
}

// A form that saves the data in use must not have its other values undone by the next trim.
void MonitorPage::followForms()
{
    auto *section = m(QStringLiteral("welmo"))->c(schema::weld().section, true);
    section->watch(true, true);
    m_overtaken.setSingleShot(true);
    connect(&m_overtaken, &QTimer::timeout, this, &MonitorPage::takeOver);
    connect(section, &kelp::ModuleObject::changed, this,
            [this](const QVariant &, const QVariant &, const QObject *sender) {
                if (sender != this && m_data)
                    m_overtaken.start(0);
            });
}

kelp::ModuleObject *MonitorPage::localCopy() const
{
    const QString file = ui->ledtWeldingName->text();
    return m(QStringLiteral("welmo"))->r(setOf(file).localPath(file));
}

void MonitorPage::takeOver()
{
    const kelp::ModuleObject *local = localCopy();
    if (!m_data || welmo::host::isMissing(local)
        || welmo::host::toVariant(local) == welmo::host::toVariant(m_data.get()))
        return;
    const double current = ui->sbxCurrent->value();
    const double voltage = ui->sbxVoltage->value();
    const bool currentIsTrimmed = current != m_shownCurrent;
    const bool voltageIsTrimmed = voltage != m_shownVoltage;
    onWeldingNameChanged();
    if (currentIsTrimmed)
        ui->sbxCurrent->setValue(current);
    if (voltageIsTrimmed)
        ui->sbxVoltage->setValue(voltage);
}

void MonitorPage::render()
{
    welmo::applyStyleRules(m_wgt);
}

void MonitorPage::onWelderStateChanged(const QVariant &value)
{
    kelp::ModuleObject data(QStringLiteral("return.data"), nullptr);
    data.importFromVariant(this, value, true, true, false);
    const auto has = [&](const char *key) {
        return data.hasCmobj(QString::fromLatin1(key), false);
    };
    const auto leaf = [&](const char *key) { return data.r(QString::fromLatin1(key)); };
    if (has("current") && has("voltage")) {
        ui->lblActualCurrent->setText(QString::number(leaf("current")->getInt(0)));
        ui->lblActualVoltage->setText(QString::number(leaf("voltage")->getInt(0)));
    }
    if (has("welding_name"))
        ui->ledtWeldingName->setText(leaf("welding_name")->getString(QString()));
    if (has("welding_speed"))
        ui->lblWeldingSpeed->setText(QString::number(leaf("welding_speed")->getInt(0)));
    const auto showReal = [&](const char *key, QLabel *label) {
        if (has(key))
            label->setText(QString::number(leaf(key)->getDouble(0.0), 'g', 6));
    };
    showReal("welding_time", ui->lblWeldingTime);
    showReal("welding_distance", ui->lblWeldingDistance);
    showReal("welding_wire_used", ui->lblWeldingWireUsed);
}

void MonitorPage::onChangeCurrentClicked()
{
    step(ui->sbxCurrent);
}

void MonitorPage::onChangeVoltageClicked()
{
    step(ui->sbxVoltage);
}

void MonitorPage::step(QDoubleSpinBox *box)
{
    if (!welmo::arcweld::isConnected()) {
        welmo::report::error(this, tr("tessa is not connected"));
        return;
    }
    box->setValue(box->value() + sender()->property(stepProperty).toInt());
}

QString MonitorPage::node() const
{
    return setOf(ui->ledtWeldingName->text()).node();
}

void MonitorPage::onWeldingNameChanged()
{
    m_data = xservice()->get(this, node(), ui->ledtWeldingName->text());
    if (welmo::arcweld::readFailed(m_data))
        m_data.reset();
    const auto shown = [this](const char *key) {
        return m_data ? m_data->r(QString::fromLatin1(key))->getDouble(0.0) : 0.0;
    };
    ui->sbxCurrent->setValue(shown("current"));
    ui->sbxVoltage->setValue(shown("voltage"));
    m_shownCurrent = ui->sbxCurrent->value();
    m_shownVoltage = ui->sbxVoltage->value();
}

void MonitorPage::onSaveClicked()
{
    // Without the rest of the file, writing these two values would drop it.
    if (!m_data) {
        welmo::report::error(this, tr("save error"));
        return;
    }
    take(QStringLiteral("current"), ui->sbxCurrent);
    take(QStringLiteral("voltage"), ui->sbxVoltage);
    const auto answer = xservice()->set(this, node(), ui->ledtWeldingName->text(), m_data.get());
    if (answer->getInt(0) != 0) {
        welmo::report::error(this, tr("save error"));
        return;
    }
    welmo::report::info(this, tr("save succeed"));
    m_shownCurrent = ui->sbxCurrent->value();
    m_shownVoltage = ui->sbxVoltage->value();
    if (kelp::ModuleObject *local = localCopy(); !welmo::host::isMissing(local))
        local->copyFrom(this, m_data.get(), true, true); // for the forms that show it
}

// A box at its end may stand for a stored value beyond it, which nobody has touched.
void MonitorPage::take(const QString &key, const QDoubleSpinBox *box)
{
    const double shown = box->value();
    if (shown < box->maximum() || m_data->r(key)->getDouble(0.0) < shown)
        m_data->set(this, key, shown, true);
}
