#pragma once

#include "instructions/forms/instructionform.h"
#include "settings/processgroups.h"

class QTabWidget;
namespace welmo {
class ArcoffGroup;
}

/// Property form of ArcOff: the arc-end file that the line names.
class ArcoffPropertyWidget : public welmo::PropertyForm
{
    Q_OBJECT
public:
    explicit ArcoffPropertyWidget(QWidget *parent);

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

    void useArcoffDefaultNode() { arcoff().useDefaultNode(); }
    void useDefaultNode() { m_groups.useDefaultNode(); }
    void initArcoffParamDefault() { arcoff().writeDefaults(); }
    void getArcoffParam() { arcoff().get(); }
    void getParamFromTessa() { m_groups.getParamFromTessa(); }
    void storeArcoffParam() { arcoff().store(); }
    void setArcoffParam() { arcoff().show(); }
    int saveArcoffParam() { return arcoff().save(); }
    void selectArcoffFileNum() { arcoff().select(); }

public slots:
    void onParamFileNumberChanged(int) { m_groups.selectFile(sender()); }
    void onSaveButtonClicked() { m_groups.save(sender()); }
    void onCancelButtonClicked() { m_groups.cancel(sender()); }
    // The slots of the mode boxes; the sender tells the group.
    void onCurrentModeChanged(int index) { m_groups.changeCurrentMode(sender(), index); }
    void onVoltageModeChanged(int index) { m_groups.changeVoltageMode(sender(), index); }
    void onArcOffDataFoldButtonClicked();

private:
    welmo::FileForm &arcoff();

    QTabWidget *m_tabs;
    welmo::ArcoffGroup *m_arcoff;
    welmo::ProcessGroups m_groups;
};
