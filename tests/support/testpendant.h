#pragma once

#include <memory>

#include "link/embedded/embeddedlink.h"
#include "pendant/app/options.h"
#include "pendant/app/pendantapp.h"
#include "pendant/window/pendantwindow.h"
#include "support/finger.h"
#include "support/logguard.h"
#include "support/widgets.h"
#include "tessa/host.h"

namespace testsupport {

struct Setup
{
    QString language = QStringLiteral("en");
    QString theme = QStringLiteral("light");
    QString dataFolder; ///< empty: a temporary folder
    QString modulePath; ///< empty: the package as built
    bool withBook = false; ///< loads the weld book as well
    bool keepFiles = false; ///< the controller's files on disk instead of in memory
    QString controller; ///< empty: one in this process
    bool example = false; ///< with the parameter files of the example
    bool connects = true; ///< false: does not wait for the controller
    welmo::controller::Clock clock = welmo::controller::steadyClock(); ///< the controller's
};

/// For keys that are held: the controller's clock stands still, so that no beat comes too late on a
/// machine under load.
inline Setup withoutTime()
{
    Setup setup;
    setup.clock = [] { return 1000; };
    return setup;
}

/// With the parameter files of the example, which can weld.
inline Setup withExample()
{
    Setup setup;
    setup.example = true;
    return setup;
}

/// A whole pendant: the real window, the real library, and a controller in this process. It is
/// connected when the constructor returns.
class TestPendant
{
public:
    explicit TestPendant(const Setup &setup = {});

    /// Waits until the link is up; false when it does not come up.
    bool waitConnected() { return waitLink(true); }
    /// Waits until the link is down; false when it stays up.
    bool waitDisconnected() { return waitLink(false); }
    /// Switches the pendant off and on.
    void restart(const Setup &setup);
    void restart() { restart(m_setup); }

    welmo::pendant::PendantApp &app() { return *m_app; }
    QWidget *window() { return m_app->window(); }
    tessa::Host *host() { return m_app->host(); }
    welmo::controller::Faults *faults() { return m_link->faults(); }
    const welmo::controller::Journal &journal() const { return m_link->journal(); }
    const Setup &setup() const { return m_setup; }
    QString dataFolder() const { return m_setup.dataFolder; }

    /// The widget of that name in the window, the visible one if there are several. Throws
    /// OutOfReach if there is none.
    template<typename Widget = QWidget>
    Widget *find(const QString &name)
    {
        const QList<Widget *> widgets = window()->findChildren<Widget *>(name);
        if (widgets.isEmpty())
            throw OutOfReach("there is no " + name);
        const auto seen = std::find_if(widgets.begin(), widgets.end(),
                                       [](const QWidget *widget) { return widget->isVisible(); });
        return seen == widgets.end() ? widgets.first() : *seen;
    }
    void click(const QString &name) { finger::touch(find(name)); }
    /// Chooses the row with this text, or with this code, in the combo.
    void choose(const QString &combo, const QString &text)
    {
        auto *widget = find<QComboBox>(combo);
        finger::choose(widget, widget->findText(text));
    }
    void chooseCode(const QString &combo, const QVariant &code)
    {
        auto *widget = find<QComboBox>(combo);
        finger::choose(widget, widget->findData(code));
    }
    /// Chooses in a combo of the Home page, which restarts the pendant; waits until it is
    /// connected.
    void changeDisplay(const QString &combo, const QString &code);
    void type(const QString &spinBox, const QString &text)
    {
        finger::type(find<QAbstractSpinBox>(spinBox), text);
    }
    /// Touches the entry of the navigation on the left.
    void open(const QString &entryKey) { click("nav_" + entryKey); }
    /// Opens the package and its sub-page whose navigation button says @p title.
    void openSubPage(const QString &title);

    /// The messages so far, newest first.
    const QVector<tessa::MessageLog::Entry> &messages()
    {
        return host()->helper()->log()->entries();
    }
    /// What the wire did by the controller's journal: F feeds, R retracts, . stops.
    QString wire() const;
    /// The newest message as "level: text"; empty when there is none.
    QString lastMessage();
    /// Writes a picture of the window to a file; false if that fails.
    bool picture(const QString &file)
    {
        QCoreApplication::processEvents();
        return window()->grab().save(file);
    }

private:
    void start();
    bool waitLink(bool up);

    LogGuard m_guard;
    QTemporaryDir m_folder;
    Setup m_setup;
    welmo::links::EmbeddedLink *m_link = nullptr;
    std::unique_ptr<welmo::pendant::PendantApp> m_app;
};

} // namespace testsupport
