#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "data/fileform.h"
#include "data/welderlimits.h"
#include "schema/processsets.h"

namespace welmo {

/// What the arc-start, welding and arc-end groups have in common: a numbered file with its modes,
/// current and voltage, a fold-out area and the buttons. A group works the same wherever it stands,
/// on the process page or in an instruction's form; its home only connects the buttons.
class ProcessGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit ProcessGroup(QWidget *parent)
        : QGroupBox(parent)
    { }

    /// Builds the controls, ranges and connections; call once, after the form was set up. @p owner,
    /// the page or form that the group stands in, is named as the sender of what is reported.
    void initUI(QObject *owner);

    FileForm &file() { return *m_file; }
    QPushButton *saveButton() const { return m_controls.save; }
    QPushButton *cancelButton() const { return m_controls.cancel; }
    bool isUnfolded() const { return m_unfolded; }
    const QComboBox *currentMode() const { return m_controls.currentMode; }
    const QComboBox *voltageMode() const { return m_controls.voltageMode; }
    const QDoubleSpinBox *voltage() const { return m_controls.voltage; }

    /// Offers every mode, as before a welder has told its own.
    void initVariant();
    /// Gives the numbers their fixed ranges again.
    void initParamRange();
    /// Offers these source or shown texts in one of the mode boxes, under this label; false for a
    /// box of others.
    bool setupMode(QLabel *label, QComboBox *combo, const QStringList &items,
                   const QString &labelText);
    /// Sets the voltage box's range for the mode (0: unified), which clamps its value, and the
    /// units that follow it.
    virtual void handleSwitchVoltageMode(int mode);

    /// Offers the welder's modes and takes over its voltage ranges; the user's choices stay.
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

    /// Called by the derived group once its generated form stands.
    void setControls(const Controls &controls, const schema::ProcessSet &set);
    /// Binds the rows that the other sets do not have.
    virtual void bindFields(FieldTable &fields) = 0;
    /// The group's own connections.
    virtual void initConnect() { }
    /// What else follows the current mode's unit ("A" or "mm/s").
    virtual void currentUnitChanged(const QString &) { }
    /// What else follows the voltage mode's unit ("%" or "V").
    virtual void voltageUnitChanged(const QString &) { }
    /// Brings up to date what depends on the values just shown.
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
