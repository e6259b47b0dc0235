#include "tessa/xservice.h"

#include <utility>

#include "kelp/habits.h"
#include "tessa/host.h"

using tessa::LinkReply;
using tessa::LinkRequest;

namespace {

const QString connectedKey = QStringLiteral("connected");

// A notification holds only the keys that changed; the others keep their values.
bool differs(const QVariant &values, const QVariant &known)
{
    if (values.userType() != QMetaType::QVariantMap)
        return !kelp::sameValue(values, known);
    const QVariantMap before = known.toMap();
    const QVariantMap after = values.toMap();
    for (auto it = after.begin(); it != after.end(); ++it) {
        if (!before.contains(it.key()) || !kelp::sameValue(before.value(it.key()), it.value()))
            return true;
    }
    return false;
}

QVariant merged(const QVariant &known, const QVariant &values)
{
    if (values.userType() != QMetaType::QVariantMap)
        return values;
    QVariantMap map = known.toMap();
    map.insert(values.toMap());
    return map;
}

// A list is notified as a whole, so entries that it lacks are removed; a map holds only changes.
void takeOver(QObject *sender, kelp::ModuleObject *node, const QVariant &values)
{
    if (values.userType() != QMetaType::QVariantMap) {
        node->importFromVariant(sender, values, true, true, true);
        return;
    }
    const QVariantMap map = values.toMap();
    for (auto it = map.begin(); it != map.end(); ++it)
        takeOver(sender, node->c(it.key(), true), it.value());
}

// The node's value is the code, unless a plain value was read, which replaces it. What a refusal
// says stands in its children, but a failed read has none: it must not look like a file.
XService::Answer makeAnswer(LinkRequest::Kind kind, const LinkReply &reply)
{
    auto answer = std::make_unique<kelp::ModuleObject>(QStringLiteral("answer"));
    // The code is set first, since it would remove children.
    answer->set(nullptr, QString(), reply.code, false);
    const bool reads = kind == LinkRequest::Kind::Get;
    const bool inner = reply.value.userType() == QMetaType::QVariantMap;
    const bool good = reply.code == 0;
    if (reads ? good && reply.value.isValid() : inner)
        answer->importFromVariant(nullptr, reply.value, false);
    return answer;
}

QVariant payloadOf(const kelp::ModuleObject *object)
{
    return object ? object->toVariant() : QVariant();
}

} // namespace

struct XService::Subscription
{
    explicit Subscription(const QString &path)
        : node(path)
    {
        node.watch(true);
    }

    kelp::ModuleObject node;
    bool wanted = false; // the node is to be watched
    bool filled = false; // a value was delivered before
    QVariant last; // all delivered values, as the controller sent them
};

XService::XService(QObject *parent)
    : QObject(parent)
    , m_tree(QStringLiteral("xservice"))
{
    m_tree.set(this, connectedKey, false);
}

XService::~XService() = default;

void XService::setLink(tessa::ControllerLink *link)
{
    if (m_link)
        m_link->disconnect(this);
    m_link = link;
    setConnected(false);
    if (!link)
        return;
    connect(link, &tessa::ControllerLink::upChanged, this, &XService::onUpChanged);
    connect(link, &tessa::ControllerLink::notified, this, &XService::onNotified);
    if (link->isUp())
        onUpChanged(true);
}

XService::Answer XService::get(QObject *sender, const QString &path)
{
    return get(sender, path, QString());
}

XService::Answer XService::get(QObject *, const QString &path, const QString &key)
{
    return exchange({LinkRequest::Kind::Get, path, key, {}});
}

XService::Answer XService::set(QObject *sender, const QString &path,
                               const kelp::ModuleObject *object)
{
    return set(sender, path, QString(), object);
}

XService::Answer XService::set(QObject *, const QString &path, const QString &key,
                               const kelp::ModuleObject *object)
{
    return exchange({LinkRequest::Kind::Set, path, key, payloadOf(object)});
}

XService::Answer XService::execCommand(QObject *, const QString &command,
                                       const kelp::ModuleObject *object)
{
    const QString name = object ? object->name() : QString();
    return exchange({LinkRequest::Kind::Command, command, name, payloadOf(object)});
}

XService::Answer XService::execCommand(QObject *, const QString &command, const QVariant &value)
{
    return exchange({LinkRequest::Kind::Command, command, {}, value});
}

XService::Answer XService::exchange(const LinkRequest &request, int timeoutMs)
{
    LinkReply reply{LinkReply::NotConnected, {}};
    if (m_link && m_link->isUp())
        reply = m_link->call(request, timeoutMs);
    if (!reply.fromController())
        setConnected(false);
    if (reply.code != 0 && request.kind != LinkRequest::Kind::Get)
        emit refused(request.path, reply.value.toMap());
    return makeAnswer(request.kind, reply);
}

void XService::watch(QObject *, const QString &path, bool notify)
{
    Subscription &entry = subscription(path);
    const bool first = notify && !entry.wanted;
    entry.wanted = notify;
    QVariant value;
    if (!first || !isConnected() || !subscribe(path, &value))
        return;
    deliver(entry, value, true);
    if (kelp::habits().firstWatchFires) // through the event loop, like all notifications
        QMetaObject::invokeMethod(
            &entry.node, [&entry, value] { entry.node.notifyWhole(value, {}, nullptr); },
            Qt::QueuedConnection);
}

kelp::ModuleObject *XService::watchNode(const QString &path)
{
    return &subscription(path).node;
}

kelp::ModuleObject *XService::mobj()
{
    return &m_tree;
}

bool XService::isConnected() const
{
    return m_tree.r(connectedKey)->getBool();
}

XService::Subscription &XService::subscription(const QString &path)
{
    auto &entry = m_subscriptions[path];
    if (!entry)
        entry = std::make_unique<Subscription>(path);
    return *entry;
}

bool XService::subscribe(const QString &path, QVariant *value)
{
    const LinkReply reply =
        m_link->call({LinkRequest::Kind::Watch, path, {}, {}}, defaultTimeoutMs);
    if (!reply.fromController())
        setConnected(false);
    *value = reply.value;
    return reply.code == 0;
}

void XService::deliver(Subscription &entry, const QVariant &values, bool silent)
{
    const kelp::Habits &habits = kelp::habits();
    const bool fire = !silent && (habits.repeatsChanges || differs(values, entry.last));
    const bool whole = values.userType() != QMetaType::QVariantMap;
    const QVariant before = std::exchange(entry.last, merged(entry.last, values));
    entry.node.importFromVariant(this, values, false, true, whole);
    entry.filled = true;
    if (fire)
        entry.node.notifyWhole(habits.tellsWholeNodes ? entry.last : values, before, this);
}

void XService::onNotified(const QString &path, const QVariant &values)
{
    // Notifications of an ended session are dropped: every value will be read again.
    if (!isConnected())
        return;
    if (m_mirrored.contains(path))
        mirror(path, values, false);
    Subscription &entry = subscription(path);
    if (entry.wanted)
        deliver(entry, values, !entry.filled);
}

void XService::onUpChanged(bool up)
{
    if (!up) {
        setConnected(false);
        return;
    }
    std::map<QString, QVariant> mirrored;
    for (const QString &path : qAsConst(m_mirrored)) {
        QVariant value;
        if (subscribe(path, &value) && value.isValid())
            mirrored.emplace(path, value);
        if (!m_link->isUp())
            return;
    }
    std::map<QString, QVariant> present;
    for (const auto &[path, entry] : m_subscriptions) {
        QVariant value;
        if (entry->wanted && subscribe(path, &value))
            present.emplace(path, value);
        if (!m_link->isUp())
            return;
    }
    setConnected(true);
    for (const auto &[path, value] : mirrored)
        mirror(path, value, true);
    emit cameUp();
    for (const auto &[path, value] : present) {
        Subscription &entry = subscription(path);
        deliver(entry, value, !entry.filled);
    }
}

void XService::mirror(const QString &path, const QVariant &values, bool isWhole)
{
    kelp::ModuleObject *node = kelp::Workspace::current()->root()->make(path);
    const QVariant before = node->toVariant();
    if (isWhole)
        node->importFromVariant(this, values, true, true, true);
    else
        takeOver(this, node, values);
    if (const QVariant now = node->toVariant(); !kelp::sameValue(now, before))
        node->notifyWhole(now, before, this); // removed nodes emit nothing themselves
}

void XService::setConnected(bool connected)
{
    if (connected == isConnected())
        return;
    // The value is set now, but the signal is emitted through the event loop: a call that fails
    // must not run its caller's slots.
    m_tree.set(this, connectedKey, connected, false);
    if (kelp::habits().tellsInsideCalls)
        announceConnected();
    else
        QMetaObject::invokeMethod(this, &XService::announceConnected, Qt::QueuedConnection);
}

void XService::announceConnected()
{
    const bool connected = isConnected();
    if (connected == m_announced)
        return;
    m_announced = connected;
    m_tree.c(connectedKey)->notifyWhole(connected, !connected, this);
    emit connectedChanged(connected);
}

XService *xservice()
{
    tessa::Host *host = tessa::Host::current();
    return host ? host->service() : nullptr;
}
