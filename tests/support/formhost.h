#pragma once

#include <memory>
#include <optional>

#include "kelp/habits.h"
#include "link/embedded/embeddedlink.h"
#include "pando/frame.h"
#include "support/logguard.h"
#include "support/widgets.h"
#include "tessa/host.h"

namespace testsupport {

/// A link to a controller that records all requests, and can answer or break instead of it.
class RecordingLink : public tessa::ControllerLink
{
    Q_OBJECT
public:
    RecordingLink();

    tessa::LinkReply call(const tessa::LinkRequest &request, int timeoutMs) override;
    void open() override { inner.open(); }
    void close() override { inner.close(); }
    bool isUp() const override { return inner.isUp(); }

    welmo::links::EmbeddedLink inner{welmo::links::EmbeddedLink::Options{}};
    QStringList requests; ///< "get arc_weld.arcon_param arcondata1"
    QVariant lastPayload; ///< of the last write or command
    QString breakAt; ///< this request breaks the link
    QHash<QString, QVariant> answers; ///< instead of the controller's, by request
    std::optional<QVariant> answerToReads; ///< to every other read and subscription
};

/// What a form needs: a host, a frame without a window, and a controller in memory. It is connected
/// when the constructor returns, unless told otherwise.
///
/// With WELMO_HOST=nasty in the environment, the host behaves differently wherever a host may.
class FormHost
{
public:
    enum Link { Connected, Down };
    explicit FormHost(Link link = Connected, const QString &language = QStringLiteral("en"));
    ~FormHost();

    static bool isNasty();
    static kelp::Habits nastyHabits() { return {true, true, true, true, true, true}; }

    /// These change the link and wait until the host has noticed; false if it does not.
    bool connect();
    bool disconnect()
    {
        m_link->close();
        return wait(false);
    }

    /// How a request can fail.
    enum Failure { NoFailure, LinkDown, Refused, NoAnswer, DiskFull };
    /// From now on @p request ("set arc_weld.weld_param arcdata1") fails in this way.
    void spoil(Failure failure, const QString &request);
    /// Ends all failures; false if the link does not come up.
    bool mend()
    {
        faults()->clear();
        return connect();
    }

    /// The messages since the last call as "level: text [sender]", oldest first.
    QStringList takeMessages() { return std::exchange(m_messages, {}); }
    /// The texts of the errors since the last call, in alphabetical order.
    QStringList takeErrors();
    /// The requests of host and form since the last call, oldest first.
    QStringList takeRequests() { return std::exchange(m_link->requests, {}); }

    /// Read and write as another pendant would; store() returns the controller's code.
    QVariant stored(const QString &path, const QString &key = {});
    int store(const QString &path, const QString &key, const QVariant &value);
    /// Tells the host values of a node, as the controller would.
    void notify(const QString &path, const QVariant &values)
    {
        emit m_link->notified(path, values);
    }

    /// Types into the box without finishing, and returns its text.
    QString typeHalf(QAbstractSpinBox *box, const QString &text);

    RecordingLink *link() { return m_link; }
    welmo::controller::Faults *faults() { return m_link->inner.faults(); }
    tessa::Host &host() { return *m_host; }
    QWidget *window() { return &m_window; }

private:
    bool wait(bool up);

    LogGuard m_guard;
    QTemporaryDir m_folder;
    QWidget m_window; // destroyed after the host, whose modules have widgets in it
    std::unique_ptr<tessa::Host> m_host;
    RecordingLink *m_link;
    QStringList m_messages;
};

/// The child of that name; ends the test program if there is none.
template<typename Widget = QWidget>
Widget *child(const QObject *form, const QString &name)
{
    auto *widget = form->findChild<Widget *>(name);
    if (!widget)
        qFatal("there is no %s", qPrintable(name));
    return widget;
}

} // namespace testsupport
