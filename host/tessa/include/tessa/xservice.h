#pragma once

#include <QHash>
#include <QObject>
#include <QVariant>
#include <map>
#include <memory>

#include "kelp/moduleobject.h"
#include "tessa/controllerlink.h"

/// The controller's nodes and commands, as the HMI reaches them. Every call is synchronous, on the
/// GUI thread, and bounded in time; a call that gets no answer takes "connected" down at once.
class XService : public QObject
{
    Q_OBJECT
public:
    /// What get, set and execCommand hand back: a free-standing node that the caller owns. Stands
    /// behind this alias because another host may hand back another kind of pointer.
    ///
    /// Its integer value is the result code, 0 for success; what was read or answered stands in its
    /// children. A node or entry that the controller does not have answers 0 and has no children; a
    /// read that failed has a code other than 0, so that the two are told apart. Where what was
    /// read is a plain value, that value takes the place of the 0.
    using Answer = std::unique_ptr<kelp::ModuleObject>;

    static constexpr int defaultTimeoutMs = 1600;

    explicit XService(QObject *parent = nullptr);
    ~XService() override;

    /// The link to speak through; it must outlive the service or be replaced by null.
    void setLink(tessa::ControllerLink *link);

    Answer get(QObject *sender, const QString &path);
    /// Reads the entry @p key of the node, such as one numbered file of a parameter set.
    Answer get(QObject *sender, const QString &path, const QString &key);
    Answer set(QObject *sender, const QString &path, const kelp::ModuleObject *object);
    Answer set(QObject *sender, const QString &path, const QString &key,
               const kelp::ModuleObject *object);
    /// Runs a command with a payload object (its name and children are the command's), or none.
    Answer execCommand(QObject *sender, const QString &command,
                       const kelp::ModuleObject *object = nullptr);
    Answer execCommand(QObject *sender, const QString &command, const QVariant &value);
    /// One request of any kind with a time limit of its own.
    Answer exchange(const tessa::LinkRequest &request, int timeoutMs = defaultTimeoutMs);

    /// Subscribes to a controller node. The first subscription fills the local copy silently; from
    /// then on the copy follows the controller, also over a lost link. @p notify false stops it for
    /// everybody who watches the node.
    void watch(QObject *sender, const QString &path, bool notify);
    /// The local copy of a node, watched or not yet. Its changed() carries the notified map, and
    /// fires only when a value differs from what was delivered before.
    kelp::ModuleObject *watchNode(const QString &path);

    /// The controller nodes whose values are copied into the application-wide tree, at their own
    /// paths, each time the link has come up and whenever the controller tells news of them: the
    /// project data that pages look up with m(). The node tells its changed() after what is below.
    void setMirrored(const QStringList &paths) { m_mirrored = paths; }

    /// The service's own tree; its leaf "connected" says whether the controller can be reached.
    kelp::ModuleObject *mobj();
    bool isConnected() const;

signals:
    /// The link was set up, every subscription is in force again and the mirrored nodes are there;
    /// fires before the watched values that changed meanwhile are delivered.
    void cameUp();
    /// "connected" changed; never fires from inside a call.
    void connectedChanged(bool connected);

private:
    struct Subscription;

    void onUpChanged(bool up);
    void onNotified(const QString &path, const QVariant &values);
    void setConnected(bool connected);
    void announceConnected();
    void mirror(const QString &path, const QVariant &values, bool isWhole);
    bool subscribe(const QString &path, QVariant *value);
    void deliver(Subscription &entry, const QVariant &values, bool silent);
    Subscription &subscription(const QString &path);

    kelp::ModuleObject m_tree;
    tessa::ControllerLink *m_link = nullptr;
    std::map<QString, std::unique_ptr<Subscription>> m_subscriptions;
    QStringList m_mirrored;
    bool m_announced = false;
};

/// The running host's service; null between hosts.
XService *xservice();
