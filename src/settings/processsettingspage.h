#pragma once

#include <memory>

#include "data/fileform.h"
#include "settings/basesubpage.h"
#include "settings/processgroups.h"

namespace Ui {
class ProcessSettingsPage;
}

/// The sub-page on which arc-start, welding and arc-end files are edited side by side.
class ProcessSettingsPage : public BaseSubPage
{
    Q_OBJECT
public:
    ProcessSettingsPage(QWidget *parent, QObject *owner);
    ~ProcessSettingsPage() override;

    /// Reads all three files again and fills the form. While the controller cannot be reached the
    /// form stays as it is.
    void initPage() override;

    /// Applies the modes and voltage ranges of the connected welder.
    void getWelderParamRange() { m_groups.getWelderParamRange(); }

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
    void useArcoffDefaultNode() { arcoff().useDefaultNode(); }
    void useDefaultNode() { m_groups.useDefaultNode(); }
    void initArconParamDefault() { arcon().writeDefaults(); }
    void initWeldParamDefault() { weld().writeDefaults(); }
    void initArcoffParamDefault() { arcoff().writeDefaults(); }
    void getArconParam() { arcon().get(); }
    void getWeldParam() { weld().get(); }
    void getArcoffParam() { arcoff().get(); }
    void getParamFromTessa() { m_groups.getParamFromTessa(); }
    void storeArconParam() { arcon().store(); }
    void storeWeldParam() { weld().store(); }
    void storeArcoffParam() { arcoff().store(); }
    void setArconParam() { arcon().show(); }
    void setWeldParam() { weld().show(); }
    void setArcoffParam() { arcoff().show(); }
    int saveArconParam() { return arcon().save(); }
    int saveWeldParam() { return weld().save(); }
    int saveArcoffParam() { return arcoff().save(); }
    void selectArconFileNum() { arcon().select(); }
    void selectWeldFileNum() { weld().select(); }
    void selectArcoffFileNum() { arcoff().select(); }
    void removeArconParam(const QList<int> &numbers);
    void removeWeldParam(const QList<int> &numbers);
    void removeArcoffParam(const QList<int> &numbers);

public slots:
    void onParamFileNumberChanged(int index);
    /// One slot for the three save buttons: the sender tells the set. Any other sender saves
    /// nothing and success is reported all the same; other parts of the pendant rely on that.
    void onSaveButtonClicked();
    void onCancelButtonClicked();
    // The slots of the mode boxes; the sender tells the group.
    void onCurrentModeChanged(int index) { m_groups.changeCurrentMode(sender(), index); }
    void onVoltageModeChanged(int index) { m_groups.changeVoltageMode(sender(), index); }
    void onArconLeadTimeEditFinished();
    void onArcBreakOptionChanged(int index);
    /// Sends the edited welding values to the welder without saving them to the file.
    void onEnableButtonClicked();
    void onArconFoldButtonClicked();
    void onWeldFoldButtonClicked();
    void onArcoffFoldButtonClicked();

private:
    void initUI();
    void initControl();
    void initConnect();

    welmo::FileForm &arcon();
    welmo::FileForm &weld();
    welmo::FileForm &arcoff();

    std::unique_ptr<Ui::ProcessSettingsPage> ui;
    welmo::ProcessGroups m_groups;
};
