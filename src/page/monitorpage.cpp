#include "page/monitorpage.h"

#include <QPushButton>

#include "data/report.h"
#include "data/stylerules.h"
#include "ui_monitorpage.h"

namespace {

const char *const stepProperty = "step";

// The set that a data name belongs to; the first word that it contains decides.
QString groupOf(const QString &name)
{
    if (name.contains(QLatin1String("arcon")))
        return QStringLiteral("arcon_param");
    if (name.contains(QLatin1String("arcdata")))
        return QStringLiteral("weld_param");
    if (name.contains(QLatin1String("arcoff")))
        return QStringLiteral("arcoff_param");
    return {};
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
}

MonitorPage::~MonitorPage()
{
    delete m_wgt;
}

void MonitorPage::render()
{
    welmo::applyStyleRules(m_wgt);
}

void MonitorPage::onWelderStateChanged(const QVariant &value)
{
    kelp::ModuleObject data(QStringLiteral("return.data"));
    data.importFromVariant(this, value, true, true, false);
    const auto has = [&](const char *key) { return data.hasCmobj(QString::fromLatin1(key)); };
    const auto leaf = [&](const char *key) { return data.r(QString::fromLatin1(key)); };
    if (has("current") && has("voltage")) {
        ui->lblActualCurrent->setText(QString::number(leaf("current")->getInt()));
        ui->lblActualVoltage->setText(QString::number(leaf("voltage")->getInt()));
    }
    if (has("welding_name"))
        ui->ledtWeldingName->setText(leaf("welding_name")->getString());
    if (has("welding_speed"))
        ui->lblWeldingSpeed->setText(QString::number(leaf("welding_speed")->getInt()));
    const auto showReal = [&](const char *key, QLabel *label) {
        if (has(key))
            label->setText(QString::number(leaf(key)->getDouble(), 'g', 6));
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
    if (!welmo::controller::isConnected()) {
        welmo::report::error(this, tr("tessa is not connected"));
        return;
    }
    box->setValue(box->value() + sender()->property(stepProperty).toInt());
}

QString MonitorPage::node() const
{
    return welmo::controller::node(groupOf(ui->ledtWeldingName->text()));
}

void MonitorPage::onWeldingNameChanged()
{
    m_data = xservice()->get(this, node(), ui->ledtWeldingName->text());
    if (welmo::controller::readFailed(m_data))
        m_data.reset();
    const auto shown = [this](const char *key) {
        return m_data ? m_data->r(QString::fromLatin1(key))->getDouble() : 0.0;
    };
    ui->sbxCurrent->setValue(shown("current"));
    ui->sbxVoltage->setValue(shown("voltage"));
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
    if (answer->getInt(0) != 0)
        welmo::report::error(this, tr("save error"));
    else
        welmo::report::info(this, tr("save succeed"));
}

// A box at its end may stand for a stored value beyond it, which nobody has touched.
void MonitorPage::take(const QString &key, const QDoubleSpinBox *box)
{
    const double shown = box->value();
    if (shown < box->maximum() || m_data->r(key)->getDouble() < shown)
        m_data->set(this, key, shown, true);
}
