#include "settings/processgroup.h"

#include "data/report.h"
#include "data/units.h"

namespace {

QStringList sourceTexts(const welmo::ChoiceTable &table)
{
    QStringList texts;
    for (const auto &choice : table.choices())
        texts.append(QString::fromLatin1(choice.text));
    return texts;
}

// By its code: a welder may offer its modes in an order of its own, or only one of them.
bool isItem(const QComboBox *combo, int index, const char *code)
{
    return combo->itemData(index).toString() == QLatin1String(code);
}

} // namespace

void ProcessGroup::setControls(const Controls &controls, const welmo::ParameterSet &set)
{
    m_controls = controls;
    m_set = &set;
}

void ProcessGroup::initUI(QObject *owner)
{
    m_file = std::make_unique<welmo::FileForm>(owner, *m_set, m_controls.fileNumber,
                                               [this] { afterShow(); });
    declareFields(m_file->fields());
    m_file->prepare();
    m_fixedVoltage = {m_controls.voltage->minimum(), m_controls.voltage->maximum()};
    applyWelder({});
    m_controls.advanced->setVisible(false);
    m_controls.fold->setText(m_controls.unfoldText);
    connect(m_controls.currentMode, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ProcessGroup::onCurrentModeChanged);
    connect(m_controls.voltageMode, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ProcessGroup::onVoltageModeChanged);
    connect(m_controls.fold, &QPushButton::clicked, this, &ProcessGroup::onFoldButtonClicked);
    initConnect();
}

void ProcessGroup::applyWelder(const welmo::WelderLimits &limits)
{
    const bool edited = m_file->isEdited();
    m_voltageRanges = limits.voltage;
    m_arcoffVoltageRanges = limits.arcoffVoltage;
    setupMode(m_controls.currentModeLabel, m_controls.currentMode, welmo::choices::currentModes(),
              limits.currentModes, tr("Current Mode"));
    setupMode(m_controls.voltageModeLabel, m_controls.voltageMode, welmo::choices::voltageModes(),
              limits.voltageModes, tr("Voltage Mode"));
    setupMode(m_controls.workModeLabel, m_controls.workMode, welmo::choices::workModes(),
              limits.workModes, tr("Arc Mode"));
    onCurrentModeChanged(m_controls.currentMode->currentIndex());
    onVoltageModeChanged(m_controls.voltageMode->currentIndex());
    if (!edited)
        m_file->settle();
}

void ProcessGroup::setupMode(QLabel *label, QComboBox *combo, const welmo::ChoiceTable &table,
                             const QStringList &items, const QString &labelText)
{
    label->setText(labelText);
    // A welder that does not tell its modes restricts nothing.
    const QStringList unknown = table.refill(combo, items.isEmpty() ? sourceTexts(table) : items);
    if (!unknown.isEmpty())
        welmo::report::warning(
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
    const bool ampere = isItem(m_controls.currentMode, index, "current");
    const QString unit = ampere ? welmo::units::ampere : welmo::units::mmPerSecond;
    m_controls.currentUnit->setText(unit);
    currentUnitChanged(unit);
}

void ProcessGroup::onVoltageModeChanged(int index)
{
    const bool unified = isItem(m_controls.voltageMode, index, "unified");
    const QString unit = unified ? welmo::units::percent : welmo::units::volt;
    handleSwitchVoltageMode(unified ? 0 : 1);
    m_controls.voltageUnit->setText(unit);
    voltageUnitChanged(unit);
}

void ProcessGroup::handleSwitchVoltageMode(int mode)
{
    setVoltageRange(m_voltageRanges, mode);
}

void ProcessGroup::setVoltageRange(const welmo::VoltageRanges &ranges, int mode)
{
    // The row's fixed range holds for a welder that does not tell its own.
    const welmo::Range range = ranges.forMode(mode).value_or(m_fixedVoltage);
    m_controls.voltage->setRange(range.minimum, range.maximum);
}

void ProcessGroup::afterShow()
{
    onCurrentModeChanged(m_controls.currentMode->currentIndex());
    // Only now: a stored voltage is clamped by the range of the mode that was shown before.
    onVoltageModeChanged(m_controls.voltageMode->currentIndex());
    applyRules();
}
