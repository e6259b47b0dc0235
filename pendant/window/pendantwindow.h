#pragma once

#include <QWidget>
#include <functional>

namespace kelp {
class ModuleObject;
}
namespace pando {
class CenterWidget;
class ExpandSideBar;
class StatusBar;
} // namespace pando
namespace tessa {
class Host;
class ManagerHelper;
class PhysicalKeys;
} // namespace tessa

namespace welmo::pendant {

class AlarmList;
class Cell;
class JogSpeed;
class KeyColumn;
class KeyHolds;
class LinkControl;
class NavPanel;

/// What the window shows of the controller; everything must outlive the window.
struct WindowState
{
    LinkControl *link;
    Cell *cell;
    AlarmList *alarms;
    JogSpeed *jog;
    QString place; ///< see HeaderBar
};

/// The pendant's screen: header, alarms, navigation, centre area, right side bar, physical keys,
/// status bar. Modules put their views into these areas.
class PendantWindow : public QWidget
{
    Q_OBJECT
public:
    /// @p entries is the node of the navigation entries; @p holds must outlive the window.
    PendantWindow(tessa::Host *host, kelp::ModuleObject *entries, const WindowState &state,
                  KeyHolds *holds);
    ~PendantWindow() override;

    pando::CenterWidget *center() { return m_center; }
    pando::ExpandSideBar *side() { return m_side; }
    /// Shows the page @p key and marks its entry; false if there is no such page.
    bool showPage(const QString &key);

    /// Closes the side bar while a form needs the room, and opens it again afterwards.
    void makeRoom(bool wanted);

    /// @p guard is asked before the window closes; if it returns false the window stays open.
    void setCloseGuard(std::function<bool()> guard) { m_closeGuard = std::move(guard); }

    /// Shows a count beside the entry of the page @p key; 0 shows none.
    void setCount(const QString &key, int count);

signals:
    /// The operator wants to see line @p line, from 1, of that program.
    void lineWanted(const QString &program, int line);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeBody(tessa::Host *host, KeyHolds *holds, kelp::ModuleObject *entries,
                      QWidget *status, QWidget *banner);
    QWidget *makeSideHead();
    QWidget *makeStrip(Cell *cell);
    QWidget *makeStatus(tessa::ManagerHelper *helper, const WindowState &state);
    void addModeText(Cell *cell);
    void addHandFacts(Cell *cell, JogSpeed *jog);

    NavPanel *m_nav = nullptr;
    KeyColumn *m_column = nullptr;
    pando::CenterWidget *m_center = nullptr;
    pando::ExpandSideBar *m_side = nullptr;
    pando::StatusBar *m_status = nullptr;
    QList<QWidget *> m_spare; // in the status bar, hidden beside the side bar: the header has them
    bool m_sideWaits = false;
    std::function<bool()> m_closeGuard;
};

} // namespace welmo::pendant
