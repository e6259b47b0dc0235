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

/// A link that keeps a list of what was asked, and breaks where it is told to.
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
    QString breakAt; ///< the link breaks when this request comes
    QHash<QString, QVariant> answers; ///< to these requests, instead of the controller's own
    std::optional<QVariant> answerToReads; ///< to every read and subscription
};

/// What a form needs around it, without a window: a host, a frame, and a controller in memory. Up
/// and connected when the constructor is through, unless told otherwise.
///
/// Run with WELMO_HOST=nasty it is a host that decides otherwise wherever one may.
class FormHost
{
public:
    enum Link { Connected, Down };
    explicit FormHost(Link link = Connected, const QString &language = QStringLiteral("en"));
    ~FormHost();

    static bool isNasty();
    static kelp::Habits nastyHabits() { return {true, true, true, true, true, true}; }

    /// Takes the link up or down, and waits until the host knows.
    bool connect();
    bool disconnect()
    {
        m_link->close();
        return wait(false);
    }

    /// What can go wrong with a request.
    enum Failure { NoFailure, LinkDown, Refused, NoAnswer, DiskFull };
    /// From now on @p request ("set arc_weld.weld_param arcdata1") fails like that.
    void spoil(Failure failure, const QString &request);
    /// Everything works again; false when the link does not come up.
    bool mend()
    {
        faults()->clear();
        return connect();
    }

    /// "level: text [sender]" of the messages since the last call, oldest first.
    QStringList takeMessages() { return std::exchange(m_messages, {}); }
    /// The texts of the errors among them alone, in alphabetical order.
    QStringList takeErrors();
    /// The requests since the last call, oldest first; those of this class are not among them.
    QStringList takeRequests() { return std::exchange(m_link->requests, {}); }

    /// What the controller has stored, and the way in which another pendant would store it.
    QVariant stored(const QString &path, const QString &key = {});
    int store(const QString &path, const QString &key, const QVariant &value);
    /// The controller tells that a node has these values.
    void notify(const QString &path, const QVariant &values)
    {
        emit m_link->notified(path, values);
    }

    /// Types into the box and does not finish; what stands there then.
    QString typeHalf(QAbstractSpinBox *box, const QString &text);

    RecordingLink *link() { return m_link; }
    welmo::controller::Faults *faults() { return m_link->inner.faults(); }
    tessa::Host &host() { return *m_host; }
    QWidget *window() { return &m_window; }

private:
    bool wait(bool up);

    LogGuard m_guard;
    QTemporaryDir m_folder;
    QWidget m_window; // goes after the host, whose modules have their widgets in here
    std::unique_ptr<tessa::Host> m_host;
    RecordingLink *m_link;
    QStringList m_messages;
};

/// The child of that name; ends the test when there is none, for nothing after it would be true.
template<typename Widget = QWidget>
Widget *child(const QObject *form, const QString &name)
{
    auto *widget = form->findChild<Widget *>(name);
    if (!widget)
        qFatal("there is no %s", qPrintable(name));
    return widget;
}

} // namespace testsupport
