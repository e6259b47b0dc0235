#pragma once

#include <QHash>
#include <QObject>
#include <QVariant>
#include <map>
#include <memory>

#include "kelp/moduleobject.h"
#include "tessa/controllerlink.h"

/// The controller's nodes and commands for the HMI. Every call is synchronous, on the GUI thread,
/// and bounded in time; a call without an answer sets "connected" to false at once.
class XService : public QObject
{
    Q_OBJECT
public:
    /// The result of get, set and execCommand: a root node that the caller owns. It is an alias
    /// because other hosts may return another kind of pointer.
    ///
    /// Its integer value is the result code, 0 for success; the values read are its children. For a
    /// node or entry that the controller does not have it is 0 without children; a failed read has
    /// a code other than 0, so that the two differ. A plain value that was read replaces the 0.
    /// What a refused write or command says about why stands in children too.
    using Answer = std::unique_ptr<kelp::ModuleObject>;

    static constexpr int defaultTimeoutMs = 1600;

    explicit XService(QObject *parent = nullptr);
    ~XService() override;

    /// Sets the link to use; it must outlive the service or be replaced by null.
    void setLink(tessa::ControllerLink *link);

    Answer get(QObject *sender, const QString &path);
    /// Reads the entry @p key of the node, such as one numbered file of a parameter set.
    Answer get(QObject *sender, const QString &path, const QString &key);
    Answer set(QObject *sender, const QString &path, const kelp::ModuleObject *object);
    Answer set(QObject *sender, const QString &path, const QString &key,
               const kelp::ModuleObject *object);
    /// Runs a command with a payload object (its name and children are the payload's), or without
    /// one.
    Answer execCommand(QObject *sender, const QString &command,
                       const kelp::ModuleObject *object = nullptr);
    Answer execCommand(QObject *sender, const QString &command, const QVariant &value);
    /// Sends one request of any kind with its own time limit.
    Answer exchange(const tessa::LinkRequest &request, int timeoutMs = defaultTimeoutMs);

    /// Subscribes to a controller node. The first subscription fills the local copy without
    /// signals; from then on the copy follows the controller, also after the link was lost. With @p
    /// notify false the node is no longer followed, for all of its watchers.
    void watch(QObject *sender, const QString &path, bool notify);
    /// The local copy of a node, watched or not. Its changed() carries the notified map, and is
    /// emitted only if a value differs from the last delivery.
    kelp::ModuleObject *watchNode(const QString &path);

    /// Sets the controller nodes that are copied to the application-wide tree, at their own paths,
    /// each time the link comes up and when they change: the project data that pages look up with
    /// m(). A node's changed() is emitted after those of its descendants.
    void setMirrored(const QStringList &paths) { m_mirrored = paths; }

    /// The service's own tree; its leaf "connected" says whether the controller can be reached.
    kelp::ModuleObject *mobj();
    bool isConnected() const;

signals:
    /// The link is up, every subscription is set up again and the mirrored nodes are read; emitted
    /// before the watched values that changed meanwhile.
    void cameUp();
    /// The controller refused a write or a command; @p why is what it said. Emitted inside the
    /// call: to be connected with a queue.
    void refused(const QString &path, const QVariantMap &why);
    /// "connected" changed; never emitted from inside a call.
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
