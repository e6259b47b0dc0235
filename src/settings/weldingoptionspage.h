#pragma once

#include <memory>

#include "data/inputs.h"
#include "data/optionsform.h"
#include "settings/basesubpage.h"

namespace Ui {
class WeldingOptionsPage;
}
class EnableButton;

/// The sub-page of three small sets of options: running parameters, the torch's collision sensor,
/// and the wire-clamping torch. Each is sent to the controller in its own way.
class WeldingOptionsPage : public BaseSubPage
{
    Q_OBJECT
public:
    WeldingOptionsPage(QWidget *parent, QObject *owner);
    ~WeldingOptionsPage() override;

    /// Reads all three sets again; a set that cannot be read stays as it is.
    void initPage() override;

    welmo::OptionsForm &running() { return m_running; }
    welmo::OptionsForm &anticollision() { return m_anticollision; }
    welmo::OptionsForm &clamping() { return m_clamping; }

    void useRunningParamDefaultNode() { m_running.useDefaultNode(); }
    void useAnticollisionParamDefaultNode() { m_anticollision.useDefaultNode(); }
    void useWireClampingTorchModeParamDefaultNode() { m_clamping.useDefaultNode(); }
    void initRunningParamDefault() { m_running.writeDefaults(); }
    void initAnticollisionParamDefault() { m_anticollision.writeDefaults(); }
    void initWireClampingTorchModeParamDefault() { m_clamping.writeDefaults(); }
    void getRunningParam() { m_running.get(); }
    void getAnticollisionParam() { m_anticollision.get(); }
    void getWireClampingTorchModeParam() { m_clamping.get(); }
    void setRunningParam() { m_running.show(); }
    void setAnticollisionParam() { m_anticollision.show(); }
    void setWireClampingTorchModeParam() { m_clamping.show(); }
    void storeRunningParam() { m_running.store(); }
    void storeAnticollisionParam() { m_anticollision.store(); }
    void storeWireClampingTorchModeParam() { m_clamping.store(); }
    void useDefaultRunningParam() { m_running.useDefault(); }
    void useDefaultAnticollisionParam() { m_anticollision.useDefault(); }
    void useDefaultWireClampingTorchModeParam() { m_clamping.useDefault(); }
    /// Makes a set's defaults its values, if the controller has none.
    void handleDefaultParam(welmo::OptionsForm &set) { set.useDefault(); }

    QStringList getDIRange() const { return welmo::inputs::getDIRange(); }
    static bool ioCompare(const QString &a, const QString &b)
    {
        return welmo::inputs::ioCompare(a, b);
    }
    /// Shows a state without running the button's handler.
    void setButtonEnabledWithoutTriggeringSlot(EnableButton *button, bool on);

public slots:
    void onRunningParamSaveButtonClicked();
    void onAnticollisionEnableChanged(bool on);
    void onAnticollisionShieldEnableChanged(bool on);
    void onAnticollisionShieldFinish(const QVariant &state);
    void onWireClampingTorchSaveButtonClicked();
    void onWelderStateChanged(const QVariant &value);

private:
    void initUI();
    void bindFields();
    void initControl();
    void initConnect();
    void initParamRange();
    void initParamValue();
    void offerInputs();
    void readAll();
    void checkWelderState();
    void showWelderState(const QString &state);

    int saveRunningParam();
    int cmdAnticollisionParam();
    int cmdWireClampingTorchModeParam();
    /// Sends an on/off button's state at once; if it is refused, puts the button back.
    bool actOnAnticollision(EnableButton *button, bool on, const QString &error,
                            const QString &success);
    void lockByAnticollision(bool on);

    std::unique_ptr<Ui::WeldingOptionsPage> ui;
    welmo::OptionsForm m_running;
    welmo::OptionsForm m_anticollision;
    welmo::OptionsForm m_clamping;
};
