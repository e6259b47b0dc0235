#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace kelp {

/// Whether a watcher would see no difference: numbers by value whatever their type, everything else
/// by type and value ("1" is not 1), maps and lists entry by entry.
bool sameValue(const QVariant &a, const QVariant &b);

/// A named node of a value tree: a leaf holds a QVariant, an inner node holds ordered, named
/// children.
///
/// Paths are dotted ("device.enable"). A child belongs to its parent node and goes with it. Lookups
/// never return null: what is missing is the EmptyModuleObject, which reads as empty and ignores
/// every write. GUI thread only.
///
/// Nothing here is inline: what a package needs of a host, it imports.
class ModuleObject : public QObject
{
    Q_OBJECT
public:
    /// A free-standing node when @p parent is null; a child node, last in order, when @p parent is
    /// a ModuleObject, in place of a child that had the name before.
    explicit ModuleObject(const QString &name, QObject *parent = nullptr);
    ~ModuleObject() override;

    QString name() const;
    /// The node that holds this one, null for a root.
    ModuleObject *pmobj() const;
    /// True for the node that stands for "there is none".
    virtual bool isMissing() const;

    /// The node at the dotted @p path below this one; an empty path is this node.
    ModuleObject *r(const QString &path) const;
    ModuleObject *rmobj(const QString &path) const;
    /// The direct child @p name; with @p create it is made when missing.
    ModuleObject *c(const QString &name, bool create = false);
    ModuleObject *cmobj(const QString &name, bool create = false);
    ModuleObject *cmobj(int index) const;
    /// The node at the dotted @p path below this one, with all that is missing on the way made.
    ModuleObject *make(const QString &path);

    /// The children in their order; with @p recursive also everything below them, depth first.
    QList<ModuleObject *> cmobjs(bool recursive = false) const;
    QStringList cmobjNames(bool recursive = false) const;
    int cmobjCount() const;
    bool hasCmobj(const QString &name, bool recursive = false) const;

    /// The leaf's value converted, or @p fallback when there is none or it cannot be converted.
    QString getString(const QString &fallback = QString()) const;
    /// A fraction is dropped (12.5 reads as 12), never rounded.
    int getInt(int fallback = 0) const;
    double getDouble(double fallback = 0.0) const;
    bool getBool(bool fallback = false) const;
    QVariantList getList() const;
    const QVariant &value() const;

    /// Creates or replaces the leaf at the dotted @p key below this node (empty: this node) and
    /// returns it; children that stood there go. A map or a list of maps becomes children, as with
    /// importFromVariant(). With @p notify, watchers get changed() when the value differs. @p
    /// sender travels with the signal so that a watcher can tell its own writes.
    ModuleObject *set(QObject *sender, const QString &key, const QVariant &value,
                      bool notify = true);
    /// As set(), but the list is the leaf's value whatever it holds.
    ModuleObject *setList(QObject *sender, const QString &key, const QVariantList &list,
                          bool notify = true);

    /// Deep copy of @p other's value and children. With @p prune, children that @p other lacks are
    /// removed, so that the trees are equal afterwards, order included. A node and itself,
    /// or one below it, are never copied onto each other.
    void copyFrom(QObject *sender, const ModuleObject *other, bool notify = true,
                  bool prune = true);
    /// Fills this node from a map (children by key), a list of maps (children by their "id", else
    /// by position, in the list's order) or a plain value. @p create makes missing children,
    /// @p prune removes what the variant does not name: other children, and a value beside them.
    void importFromVariant(QObject *sender, const QVariant &variant, bool notify = true,
                           bool create = true, bool prune = false);
    /// A QVariantMap for an inner node, the value for a leaf; what came as a list of maps is a map
    /// by then.
    QVariant toVariant() const;

    /// Removes the direct child @p name and everything below it; false when there is none.
    bool removeChild(const QString &name);

    /// A name that no child of @p node has: "p1", "p2", … in counting order.
    static QString generateId(const ModuleObject *node);
    static QString generateId(const ModuleObject *node, const QString &prefix);

    /// Switches changed() on or off for this node; with @p recursive also for what lies below it
    /// (the values are then those of the changed descendant).
    void watch(bool on = true, bool recursive = false);
    /// Emits changed() of a watched node for a value that was delivered as a whole: the way in
    /// which a controller node's notification, a map, reaches its receivers.
    void notifyWhole(const QVariant &value, const QVariant &old, QObject *sender);
    /// Switches touched() on or off.
    void observeSubtree(bool on);

signals:
    void changed(const QVariant &value, const QVariant &old, QObject *sender);
    /// Anything below changed, notified or not; only on nodes with observeSubtree(true).
    void touched();

private:
    void assign(QObject *sender, const QVariant &value, bool notify);
    void announce(QObject *sender, const QVariant &old);
    void touch();
    bool isWithin(const ModuleObject *other) const;
    void pruneExcept(const QStringList &names);
    void arrange(const QStringList &names);

    QString m_name;
    QVariant m_value;
    ModuleObject *m_parentNode = nullptr;
    QVector<ModuleObject *> m_children;
    QHash<QString, ModuleObject *> m_byName;
    bool m_watched = false;
    bool m_watchedBelow = false;
    bool m_observed = false;
};

/// What a lookup yields for a missing node: one shared node that is always empty.
class EmptyModuleObject : public ModuleObject
{
    Q_OBJECT
public:
    static EmptyModuleObject *instance();
    bool isMissing() const override;

private:
    EmptyModuleObject();
};

} // namespace kelp

/// The node at the dotted @p path of the application-wide tree, or below @p root.
kelp::ModuleObject *m(const QString &path, kelp::ModuleObject *root = nullptr);
