#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "data/fileform.h"
#include "data/welderlimits.h"
#include "schema/processsets.h"

namespace welmo {

/// Base of the arc-start, welding and arc-end groups: a numbered file with its modes, current and
/// voltage, a fold-out area and the buttons. It works the same on the process page and in an
/// instruction's form; its home only connects the buttons.
class ProcessGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit ProcessGroup(QWidget *parent)
        : QGroupBox(parent)
    { }

    /// Sets up the controls, ranges and connections; call it once, after the generated form. @p
    /// owner, the page or form around the group, is the sender of what is reported.
    void initUI(QObject *owner);

    FileForm &file() { return *m_file; }
    QPushButton *saveButton() const { return m_controls.save; }
    QPushButton *cancelButton() const { return m_controls.cancel; }
    bool isUnfolded() const { return m_unfolded; }
    const QComboBox *currentMode() const { return m_controls.currentMode; }
    const QComboBox *voltageMode() const { return m_controls.voltageMode; }
    const QDoubleSpinBox *voltage() const { return m_controls.voltage; }

    /// Offers every mode, as before the welder has told its own.
    void initVariant();
    /// Sets the numbers to their fixed ranges again.
    void initParamRange();
    /// Offers these source or shown texts in one of the mode boxes, under this label; false if the
    /// box is not this group's.
    bool setupMode(QLabel *label, QComboBox *combo, const QStringList &items,
                   const QString &labelText);
    /// Sets the voltage box's range for the mode (0: unified), which clamps its value, and the
    /// units that follow it.
    virtual void handleSwitchVoltageMode(int mode);

    /// Offers the welder's modes and uses its voltage ranges; the user's choices stay.
    void applyWelder(const WelderLimits &limits);

public slots:
    /// Opens or closes the fold-out area.
    void onFoldButtonClicked();
    void onCurrentModeChanged(int index);
    void onVoltageModeChanged(int index);

protected:
    struct Controls
    {
        QComboBox *fileNumber;
        QLineEdit *annotation;
        QLabel *workModeLabel;
        QComboBox *workMode;
        QLabel *currentModeLabel;
        QComboBox *currentMode;
        QLabel *voltageModeLabel;
        QComboBox *voltageMode;
        QDoubleSpinBox *current;
        QLabel *currentUnit;
        QDoubleSpinBox *voltage;
        QLabel *voltageUnit;
        QWidget *advanced;
        QPushButton *fold;
        QPushButton *save;
        QPushButton *cancel;
        QString foldText;
        QString unfoldText;
    };

    /// To be called by the derived group once its generated form is set up.
    void setControls(const Controls &controls, const schema::ProcessSet &set);
    /// Binds the rows that only this set has.
    virtual void bindFields(FieldTable &fields) = 0;
    /// The group's own connections.
    virtual void initConnect() { }
    /// Called with the current mode's unit ("A" or "mm/s") for other labels that show it.
    virtual void currentUnitChanged(const QString &) { }
    /// Called with the voltage mode's unit ("%" or "V") for other labels that show it.
    virtual void voltageUnitChanged(const QString &) { }
    /// Updates what depends on the values just shown.
    virtual void applyRules() { }
    void setVoltageRange(const VoltageRanges &ranges, int mode);
    VoltageRanges m_voltageRanges;
    VoltageRanges m_arcoffVoltageRanges;

private:
    void bindSharedFields(FieldTable &fields);
    void afterShow();
    void offerModes(QLabel *label, QComboBox *combo, const schema::ChoiceTable &table,
                    const QStringList &items, const QString &labelText);
    void offerModes(const WelderLimits &limits);

    Controls m_controls{};
    Range m_fixedVoltage{};
    const schema::ProcessSet *m_set = nullptr;
    std::unique_ptr<FileForm> m_file;
    bool m_unfolded = false;
};

} // namespace welmo
