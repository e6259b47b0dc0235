#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace kelp {

/// Whether watchers regard the values as equal: numbers are compared by value whatever their type,
/// everything else by type and value ("1" is not 1), maps and lists entry by entry.
bool sameValue(const QVariant &a, const QVariant &b);

/// A named node of a value tree: a leaf holds a QVariant, an inner node holds ordered, named
/// children.
///
/// Paths are dotted ("device.enable"). A child belongs to its parent node and is deleted with it.
/// Look-ups never return null: a missing node is the EmptyModuleObject, which reads as empty and
/// ignores every write. GUI thread only.
///
/// No function is inline, so that a package imports all that it uses of a host.
class ModuleObject : public QObject
{
    Q_OBJECT
public:
    /// Without a parent the node is a root. With a ModuleObject as parent it becomes the last
    /// child, and replaces a child of the same name.
    explicit ModuleObject(const QString &name, QObject *parent = nullptr);
    ~ModuleObject() override;

    QString name() const;
    /// The parent node; null for a root.
    ModuleObject *pmobj() const;
    /// True for the node that a look-up returns for a missing one.
    virtual bool isMissing() const;

    /// The node at the dotted @p path below this one; an empty path is this node.
    ModuleObject *r(const QString &path) const;
    ModuleObject *rmobj(const QString &path) const;
    /// The direct child @p name; with @p create it is made if missing.
    ModuleObject *c(const QString &name, bool create = false);
    ModuleObject *cmobj(const QString &name, bool create = false);
    ModuleObject *cmobj(int index) const;
    /// The node at the dotted @p path below this one; missing nodes on the way are made.
    ModuleObject *make(const QString &path);

    /// The children in their order; with @p recursive all descendants, depth first.
    QList<ModuleObject *> cmobjs(bool recursive = false) const;
    QStringList cmobjNames(bool recursive = false) const;
    int cmobjCount() const;
    bool hasCmobj(const QString &name, bool recursive = false) const;

    /// The leaf's value converted, or @p fallback if there is none or it cannot be converted.
    QString getString(const QString &fallback = QString()) const;
    /// A fraction is cut off (12.5 reads as 12), not rounded.
    int getInt(int fallback = 0) const;
    double getDouble(double fallback = 0.0) const;
    bool getBool(bool fallback = false) const;
    QVariantList getList() const;
    const QVariant &value() const;

    /// Creates or replaces the leaf at the dotted @p key below this node (empty: this node) and
    /// returns it; children of the old node are deleted. A map or a list of maps becomes children,
    /// as with importFromVariant(). With @p notify, watchers get changed() if the value differs. @p
    /// sender is passed with the signal so that a watcher can recognise its own writes.
    ModuleObject *set(QObject *sender, const QString &key, const QVariant &value,
                      bool notify = true);
    /// As set(), but the list becomes the leaf's value even if it consists of maps.
    ModuleObject *setList(QObject *sender, const QString &key, const QVariantList &list,
                          bool notify = true);

    /// Deep copy of @p other's value and children. With @p prune, children that @p other lacks are
    /// removed, so that the trees are equal afterwards, order included. Copying a node to itself,
    /// or between a node and its descendant, does nothing.
    void copyFrom(QObject *sender, const ModuleObject *other, bool notify = true,
                  bool prune = true);
    /// Fills this node from a map (children by key), a list of maps (children by their "id", else
    /// by position, in the list's order) or a plain value. @p create makes missing children; @p
    /// prune removes children that the variant does not name, and a value beside them.
    void importFromVariant(QObject *sender, const QVariant &variant, bool notify = true,
                           bool create = true, bool prune = false);
    /// A QVariantMap for an inner node, the value for a leaf. What was set as a list of maps is
    /// returned as a map.
    QVariant toVariant() const;

    /// Removes the direct child @p name and its descendants; false if there is none.
    bool removeChild(const QString &name);

    /// A name that no child of @p node has: the first free one of "p1", "p2", …
    static QString generateId(const ModuleObject *node);
    static QString generateId(const ModuleObject *node, const QString &prefix);

    /// Switches changed() on or off for this node; with @p recursive also for its descendants, with
    /// the values of the changed one.
    void watch(bool on = true, bool recursive = false);
    /// Emits changed() of a watched node with a value that was delivered as a whole; notifications
    /// of controller nodes, which are maps, reach their receivers this way.
    void notifyWhole(const QVariant &value, const QVariant &old, QObject *sender);
    /// Switches touched() on or off.
    void observeSubtree(bool on);

signals:
    void changed(const QVariant &value, const QVariant &old, QObject *sender);
    /// A descendant changed, with or without notification; only after observeSubtree(true).
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

/// The result of a look-up of a missing node: one shared node that is always empty.
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
