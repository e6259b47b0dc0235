#pragma once

#include <memory>
#include <vector>

#include "settings/basesubpage.h"

namespace Ui {
class DevicesSettingPage;
}
class EnableButton;
class QComboBox;

/// The sub-page that enables welding and chooses the welder: protocol, brand, type and rated
/// current, where each list depends on the choices before it.
class DevicesSettingPage : public BaseSubPage
{
    Q_OBJECT
public:
    DevicesSettingPage(QWidget *parent, QObject *owner);
    ~DevicesSettingPage() override;

    /// Shows the controller's present welder setting.
    void initPage() override;

    /// Drops the last character and reads the rest: "500A" gives 500.
    static int convertCurrentToInt(const QString &text);

public slots:
    void onEnableChanged(bool on);
    void onWeatherConnectWelderEnableChanged(bool on);
    void onProtocolSelectChanged(int index);
    void onBrandSelectChanged(int index);
    void onTypeSelectChanged(int index);
    void onWelderStateChanged(const QVariant &value);

private:
    void initVariant();
    void initUI();
    void initWelderSetting();
    void initControl();
    void initConnect();
    void loadFromRc();
    void loadFromMobj();
    void storeDeviceParam();
    /// Sends switches and choices to the controller; false if it did not take them.
    bool cmdSetWelder();
    /// Shows the state that the controller accepted, without the switch's handler, and keeps it in
    /// the tree.
    void putBack(EnableButton *button, const QString &key, bool on);
    void setSelectionEnabled(bool on);
    void showSwitches();
    void showChoices();
    QStringList choices() const;
    void onWelderSettingChanged();

    const kelp::ModuleObject *chosen(size_t count) const;

    /// One choice of the welder: its key in the setting, and its box, whose items carry the
    /// controller's texts.
    struct Choice
    {
        const char *key;
        QComboBox *combo;
    };

    std::unique_ptr<Ui::DevicesSettingPage> ui;
    std::vector<Choice> m_choices; ///< each list depends on the choices before it
    QStringList m_shownChoices; ///< as last shown; a box that differs is being changed
};
