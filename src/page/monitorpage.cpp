#include "page/monitorpage.h"

#include <QLineEdit>
#include <QPushButton>
#include <array>

#include <tessa/managerhelper.h>

#include "data/field.h"
#include "data/fieldedits.h"
#include "data/report.h"
#include "schema/processsets.h"
#include "ui_monitorpage.h"
#include "widgets/stylerules.h"

namespace schema = welmo::schema;

namespace {

const char *const stepProperty = "step";
const QString stateNode = QStringLiteral("arc_weld.welder_state");
const QString currentKey = QStringLiteral("current");
const QString voltageKey = QStringLiteral("voltage");
constexpr double tolerance = 1e-9; // for a number that was stored and read again

std::array<const schema::FileSet *, 3> sets()
{
    return {&schema::arcOn(), &schema::weld(), &schema::arcOff()};
}

// The set that a data name belongs to: the first one whose word the name contains.
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

QLineEdit *lineOf(const QDoubleSpinBox *box)
{
    return box->findChild<QLineEdit *>();
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
        button->setProperty("func", QStringLiteral("humble"));
        button->setProperty(stepProperty, step);
        connect(button, &QPushButton::clicked, this, slot);
    };
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
    ui->ledtWeldingName->setPlaceholderText(tr("no weld data in use"));
    followController();
    followLink();
    followFiles();
}

MonitorPage::~MonitorPage()
{
    delete m_wgt;
}

void MonitorPage::followController()
{
    // The widgets bound the connections: a host may delete them before its modules.
    connect(xservice()->watchNode(stateNode), &kelp::ModuleObject::changed, m_wgt,
            [this](const QVariant &value) { onWelderStateChanged(value); });
    connect(welmo::host::controllerManager(), &tessa::ControllerManager::rcConnected, m_wgt,
            [this] { reload(); });
}

void MonitorPage::reload()
{
    m_isLoaded = true;
    for (const schema::FileSet *set : sets())
        xservice()->watch(this, set->node(), true);
    const QString name = ui->ledtWeldingName->text();
    const auto state = xservice()->get(this, stateNode);
    if (welmo::arcweld::readFailed(state))
        welmo::report::readFailed(this, stateNode);
    else
        onWelderStateChanged(welmo::host::toVariant(state.get()));
    const bool isShown = name == ui->ledtWeldingName->text(); // else the data was read just now
    if (isShown && !name.isEmpty() && !takeOver())
        welmo::report::readFailed(this, name);
}

// Disables the values while the link is down, since they may no longer hold.
void MonitorPage::followLink()
{
    const auto show = [this](bool connected) {
        ui->gbxActualValue->setEnabled(connected);
        ui->gbxAdvancedMonitoring->setEnabled(connected);
    };
    kelp::ModuleObject *leaf = welmo::host::serviceTree()->c(QStringLiteral("connected"), true);
    leaf->watch(true, false);
    connect(leaf, &kelp::ModuleObject::changed, m_wgt,
            [show](const QVariant &value) { show(value.toBool()); });
    show(welmo::arcweld::isConnected());
}

// Keeps up with other writers, so that the next trim does not undo what they saved.
void MonitorPage::followFiles()
{
    for (const schema::FileSet *set : sets())
        connect(xservice()->watchNode(set->node()), &kelp::ModuleObject::changed, m_wgt,
                [this](const QVariant &files) { onFilesChanged(files); });
}

void MonitorPage::onFilesChanged(const QVariant &files)
{
    const QVariant theirs = files.toMap().value(ui->ledtWeldingName->text());
    if (m_data && theirs.isValid() && theirs != welmo::host::toVariant(m_data.get()))
        takeOver();
}

bool MonitorPage::takeOver(QStringList *overlap)
{
    struct Value
    {
        QString key;
        QDoubleSpinBox *box;
        double &shown;
    };
    const Value values[]{{currentKey, ui->sbxCurrent, m_shownCurrent},
                         {voltageKey, ui->sbxVoltage, m_shownVoltage}};
    QHash<QString, double> trimmed;
    QHash<QString, std::pair<QString, int>> typed; // a number that is not complete, and the caret
    for (const auto &[key, box, shown] : values) {
        if (box->value() != shown)
            trimmed.insert(key, box->value());
        if (welmo::isBeingTyped(box))
            typed.insert(key, {lineOf(box)->text(), lineOf(box)->cursorPosition()});
    }
    const double before[]{m_shownCurrent, m_shownVoltage};
    if (!fetch())
        return false;
    showData();
    QStringList changed;
    for (int i = 0; i < 2; ++i) {
        const auto &[key, box, shown] = values[i];
        const double wanted = trimmed.value(key, shown);
        if (trimmed.contains(key) && shown != before[i] && shown != wanted) {
            changed.append(key);
            welmo::FieldEdits::reportOverlap(this, ui->ledtWeldingName->text(), welmo::labelOf(box),
                                             m_data->r(key)->getString(QString()));
        }
        box->setValue(wanted);
        if (typed.contains(key)) {
            lineOf(box)->setText(typed.value(key).first);
            lineOf(box)->setCursorPosition(typed.value(key).second);
            lineOf(box)->setModified(true);
        }
    }
    if (overlap)
        *overlap = changed;
    return true;
}

void MonitorPage::render()
{
    welmo::applyStyleRules(m_wgt);
    // If the link came up before the page was made, no signal follows.
    if (!m_isLoaded && welmo::arcweld::isConnected())
        reload();
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
    if (!welmo::report::requireConnection(this))
        return;
    if (const QObject *button = sender())
        box->setValue(box->value() + button->property(stepProperty).toInt());
}

QString MonitorPage::node() const
{
    return setOf(ui->ledtWeldingName->text()).node();
}

void MonitorPage::onWeldingNameChanged()
{
    m_told.clear();
    if (!fetch())
        welmo::report::readFailed(this, ui->ledtWeldingName->text());
    showData();
}

// False for data that could not be read: saving it would lose the rest of the file. A name of no
// set is left to the controller to judge.
bool MonitorPage::fetch()
{
    const QString name = ui->ledtWeldingName->text();
    m_data = xservice()->get(this, node(), name);
    return !welmo::arcweld::readFailed(m_data) || setOf(name).name.isEmpty();
}

void MonitorPage::showData()
{
    show(currentKey, ui->sbxCurrent, &m_shownCurrent);
    show(voltageKey, ui->sbxVoltage, &m_shownVoltage);
}

void MonitorPage::show(const QString &key, QDoubleSpinBox *box, double *shown)
{
    const double stored = m_data->r(key)->getDouble(0.0);
    box->setValue(stored);
    *shown = box->value();
    const auto number = [](double value) { return QString::number(value, 'g', 10); };
    const QString line = tr("%1: %2 %4 is stored, %3 %4 is shown")
                             .arg(ui->ledtWeldingName->text(), number(stored), number(*shown),
                                  box->suffix().trimmed());
    if (qAbs(stored - *shown) < tolerance || line == m_told)
        return;
    m_told = line;
    welmo::report::warning(this, line);
}

void MonitorPage::onSaveClicked()
{
    // Reads again first, so that the save does not undo what another pendant wrote.
    QStringList overlap;
    if (!takeOver(&overlap)) {
        welmo::report::error(this, tr("save error"));
        return;
    }
    if (!overlap.isEmpty())
        return; // it was reported; the user may save again
    m_data->set(this, currentKey, ui->sbxCurrent->value(), true);
    m_data->set(this, voltageKey, ui->sbxVoltage->value(), true);
    const auto answer = xservice()->set(this, node(), ui->ledtWeldingName->text(), m_data.get());
    if (answer->getInt(0) != 0) {
        welmo::report::error(this, tr("save error"));
        return;
    }
    welmo::report::info(this, tr("save succeed"));
    m_shownCurrent = ui->sbxCurrent->value();
    m_shownVoltage = ui->sbxVoltage->value();
}
