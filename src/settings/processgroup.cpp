#include "settings/processgroup.h"

#include "data/choices.h"
#include "data/report.h"
#include "schema/unit.h"
#include "widgets/latepolish.h"
#include "widgets/pairfold.h"

namespace welmo {

void ProcessGroup::setControls(const Controls &controls, const schema::ProcessSet &set)
{
    m_controls = controls;
    m_set = &set;
}

void ProcessGroup::initUI(QObject *owner)
{
    m_file =
        std::make_unique<FileForm>(owner, *m_set, m_controls.fileNumber, [this] { afterShow(); });
    bindSharedFields(m_file->fields());
    bindFields(m_file->fields());
    m_file->prepare();
    m_file->addHint(this);
    m_file->showEdits(m_controls.save);
    m_fixedVoltage = {m_controls.voltage->minimum(), m_controls.voltage->maximum()};
    applyWelder({});
    m_controls.advanced->setVisible(false);
    new LatePolish(m_controls.advanced);
    m_controls.fold->setText(m_controls.unfoldText);
    new PairFold(this, m_controls.fold);
    connect(m_controls.currentMode, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ProcessGroup::onCurrentModeChanged);
    connect(m_controls.voltageMode, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ProcessGroup::onVoltageModeChanged);
    connect(m_controls.fold, &QPushButton::clicked, this, &ProcessGroup::onFoldButtonClicked);
    initConnect();
}

void ProcessGroup::bindSharedFields(FieldTable &f)
{
    f.bind(m_set->fileName, m_controls.fileNumber);
    f.bind(m_set->annotation, m_controls.annotation);
    f.bind(m_set->mode, m_controls.workMode);
    f.bind(m_set->currentMode, m_controls.currentMode);
    f.bind(m_set->voltageMode, m_controls.voltageMode);
    f.bind(m_set->current, m_controls.current);
    f.bind(m_set->voltage, m_controls.voltage);
}

void ProcessGroup::applyWelder(const WelderLimits &limits)
{
    const bool edited = m_file->isEdited();
    m_voltageRanges = limits.voltage;
    m_arcoffVoltageRanges = limits.arcoffVoltage;
    offerModes(limits);
    onCurrentModeChanged(m_controls.currentMode->currentIndex());
    onVoltageModeChanged(m_controls.voltageMode->currentIndex());
    if (!edited)
        m_file->markUnedited();
}

void ProcessGroup::offerModes(const WelderLimits &limits)
{
    offerModes(m_controls.currentModeLabel, m_controls.currentMode, m_set->currentMode.table,
               limits.currentModes, tr("Current Mode"));
    offerModes(m_controls.voltageModeLabel, m_controls.voltageMode, m_set->voltageMode.table,
               limits.voltageModes, tr("Voltage Mode"));
    offerModes(m_controls.workModeLabel, m_controls.workMode, m_set->mode.table, limits.workModes,
               tr("Arc Mode"));
}

void ProcessGroup::initVariant()
{
    offerModes(WelderLimits{});
}

void ProcessGroup::initParamRange()
{
    m_file->fields().applyRanges();
}

bool ProcessGroup::setupMode(QLabel *label, QComboBox *combo, const QStringList &items,
                             const QString &labelText)
{
    const std::pair<QComboBox *, const schema::ChoiceTable &> modes[]{
        {m_controls.workMode, m_set->mode.table},
        {m_controls.currentMode, m_set->currentMode.table},
        {m_controls.voltageMode, m_set->voltageMode.table}};
    for (const auto &[box, table] : modes) {
        if (box == combo) {
            offerModes(label, combo, table, items, labelText);
            return true;
        }
    }
    return false;
}

void ProcessGroup::offerModes(QLabel *label, QComboBox *combo, const schema::ChoiceTable &table,
                              const QStringList &items, const QString &labelText)
{
    label->setText(labelText);
    // If the welder does not tell its modes, all are offered.
    const QStringList unknown = choices::refill(combo, table, items);
    if (!unknown.isEmpty())
        report::warning(
            this, tr("the welder offers unknown modes: %1").arg(unknown.join(QLatin1String(", "))));
}

void ProcessGroup::onFoldButtonClicked()
{
    m_unfolded = !m_unfolded;
    m_controls.advanced->setVisible(m_unfolded);
    m_controls.fold->setText(m_unfolded ? m_controls.foldText : m_controls.unfoldText);
    m_controls.advanced->adjustSize();
}

void ProcessGroup::onCurrentModeChanged(int index)
{
    const bool ampere = choices::isItem(m_controls.currentMode, index, schema::codes::current);
    const QString unit = ampere ? units::ampere : units::mmPerSecond;
    m_controls.currentUnit->setText(unit);
    currentUnitChanged(unit);
}

void ProcessGroup::onVoltageModeChanged(int index)
{
    const bool unified = choices::isItem(m_controls.voltageMode, index, schema::codes::unified);
    const QString unit = unified ? units::percent : units::volt;
    handleSwitchVoltageMode(unified ? 0 : 1);
    m_controls.voltageUnit->setText(unit);
}

void ProcessGroup::handleSwitchVoltageMode(int mode)
{
    setVoltageRange(m_voltageRanges, mode);
    voltageUnitChanged(mode == 0 ? units::percent : units::volt);
}

void ProcessGroup::setVoltageRange(const VoltageRanges &ranges, int mode)
{
    // If the welder does not tell its range, the row's fixed range holds.
    const Range range = ranges.forMode(mode).value_or(m_fixedVoltage);
    m_controls.voltage->setRange(range.minimum, range.maximum);
}

void ProcessGroup::afterShow()
{
    onCurrentModeChanged(m_controls.currentMode->currentIndex());
    // Only after the values are shown: the range of the previous mode must clamp the stored
    // voltage.
    onVoltageModeChanged(m_controls.voltageMode->currentIndex());
    applyRules();
}

} // namespace welmo
