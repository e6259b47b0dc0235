#pragma once

#include "instructions/forms/instructionform.h"
#include "settings/processgroups.h"

class QTabWidget;
namespace welmo {
class ArconGroup;
class WeldGroup;
} // namespace welmo

/// Property form of ArcOn: the arc-start and the welding file that the line names, each on its tab.
class ArconPropertyWidget : public welmo::PropertyForm
{
    Q_OBJECT
public:
    explicit ArconPropertyWidget(QWidget *parent);

    void FillWith(const QString &line) override;
    QString ToString() override;

    void initVariant() { m_groups.initVariant(); }
    void initParamRange() { m_groups.initParamRange(); }
    void initParamValue() { m_groups.initParamValue(); }
    void setupMode(QLabel *label, QComboBox *combo, const QStringList &items,
                   const QString &labelText)
    {
        m_groups.setupMode(label, combo, items, labelText);
    }
    void handleSwitchVoltageMode(QDoubleSpinBox *box, int mode)
    {
        m_groups.switchVoltageMode(box, mode);
    }

    void useArconDefaultNode() { arcon().useDefaultNode(); }
    void useWeldDefaultNode() { weld().useDefaultNode(); }
    void useDefaultNode() { m_groups.useDefaultNode(); }
    void initArconParamDefault() { arcon().writeDefaults(); }
    void initWeldParamDefault() { weld().writeDefaults(); }
    void getArconParam() { arcon().get(); }
    void getWeldParam() { weld().get(); }
    void getParamFromTessa() { m_groups.getParamFromTessa(); }
    void storeArconParam() { arcon().store(); }
    void storeWeldParam() { weld().store(); }
    void setArconParam() { arcon().show(); }
    void setWeldParam() { weld().show(); }
    int saveArconParam() { return arcon().save(); }
    int saveWeldParam() { return weld().save(); }
    void selectArconFileNum() { arcon().select(); }
    void selectWeldFileNum() { weld().select(); }

public slots:
    void onParamFileNumberChanged(int) { m_groups.selectFile(sender()); }
    void onSaveButtonClicked() { m_groups.save(sender()); }
    void onCancelButtonClicked() { m_groups.cancel(sender()); }
    // The slots of the mode boxes; the sender tells the group.
    void onCurrentModeChanged(int index) { m_groups.changeCurrentMode(sender(), index); }
    void onVoltageModeChanged(int index) { m_groups.changeVoltageMode(sender(), index); }
    void onArconLeadTimeEditFinished();
    void onArcBreakOptionChanged(int index);
    void onArcOnDataFoldButtonClicked();
    void onArcDataFoldButtonClicked();
    /// Choosing a tab toggles the fold of the other tab's group, as programmers in the field
    /// expect.
    void onTabChanged(int index);

private:
    welmo::FileForm &arcon();
    welmo::FileForm &weld();

    QTabWidget *m_tabs;
    welmo::ArconGroup *m_arcon;
    welmo::WeldGroup *m_weld;
    welmo::ProcessGroups m_groups;
};
