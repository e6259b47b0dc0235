#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include <tessa/basepage.h>

namespace Ui {
class ArcWeldPage;
}
class BaseSubPage;
class QToolButton;
namespace welmo {
class HandleKeys;
class WeldModeIndicator;
} // namespace welmo

/// The module's main view: a strip of buttons and the sub-page that is chosen with them.
class ArcWeldPage : public tessa::BasePage
{
    Q_OBJECT
public:
    struct SubPageCfg
    {
        QString title;
        QString icon;
        std::function<BaseSubPage *()> factory; ///< makes a sub-page in the content widget
        bool destroyWhenLeft = false;
        BaseSubPage *page = nullptr; ///< null until first shown, and after it was destroyed
        QToolButton *button = nullptr;
    };

    ArcWeldPage(QWidget *parent, QObject *owner);
    ~ArcWeldPage() override;

    void init() override;
    void render() override;
    QWidget *wgt() const { return m_wgt; }
    void updateAvailability() override;

    /// Copies the controller's values that the module's pages need to the module tree, and
    /// subscribes to what the page shows.
    void loadFromRC();

    /// Registers the handle keys with the host.
    void registerArcButton();

public slots:
    /// Shows the sub-page whose button sent the click.
    void switchPage();
    /// One step of the jog speed, as by a handle key; see HandleKeys.
    void onJogVAddTimeOut();
    void onJogVMinusTimeOut();

private:
    template<typename Page>
    void addSubPage(const QString &title, const QString &icon);
    void createButton(SubPageCfg &entry);
    void show(SubPageCfg &entry);
    void leave(SubPageCfg &entry);
    void paintIcon(const SubPageCfg &entry, const QString &ink);
    void followEnableLeaf();
    void reload();
    void addModeIndicator();
    void onWeldModeChanged(const QVariant &value);
    void loadWelderSetting();

    QPointer<QWidget> m_wgt;
    std::unique_ptr<Ui::ArcWeldPage> ui;
    QList<SubPageCfg> m_entries;
    QToolButton *m_currentButton = nullptr;
    BaseSubPage *m_currentPage = nullptr;
    welmo::HandleKeys *m_keys;
    QPointer<welmo::WeldModeIndicator> m_modeIndicator;
    bool m_isLoaded = false; ///< the link was up at least once since init()
};
