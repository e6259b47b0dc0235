#pragma once

#include <QIcon>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <vector>

namespace tessa {

/// One freely assignable key of the pendant's handle.
struct PhysicalButton
{
    QString label;
    QIcon unpressed;
    QIcon pressed;
    /// Called with true when the key is pressed, with false when it is released.
    std::function<void(bool pressed)> action;
};

/// The handle keys of a running host. Every press is followed by exactly one release, whatever
/// happens to the key meanwhile; a key of a disabled set does nothing.
class PhysicalKeys : public QObject
{
    Q_OBJECT
public:
    struct Set
    {
        QString name;
        QList<PhysicalButton> firstGroup;
        QList<PhysicalButton> secondGroup;
        bool enabled = false;
        bool onPage = false; ///< shown on one of the host's own pages instead of the handle
    };

    using QObject::QObject;
    ~PhysicalKeys() override;

    /// Adds the set, or replaces the one of that name. It is removed, without releases, when its
    /// owner is deleted.
    void regist(QObject *owner, const Set &set);
    /// Enables or disables a set; held keys of a disabled set are released at once.
    void setEnabled(const QString &name, bool enabled);

    /// The number of all keys: each set's first group, then its second, in registration order.
    int count() const;
    const PhysicalButton &button(int key) const;
    /// Whether the key is the first one of its group.
    bool startsGroup(int key) const;
    bool isEnabled(int key) const;
    bool isHeld(int key) const;
    /// Whether the key is on the handle instead of a page.
    bool isOnHandle(int key) const;
    /// The first key of the set; -1 if there is no such set.
    int firstOf(const QString &set) const;
    /// The numbers of the presses whose keys are held, oldest first.
    QVector<int> heldPresses() const;

    /// A key was pressed. Ignored if it is disabled or held already; a key that was pressed while
    /// disabled must be pressed again.
    void press(int key);
    void release(int key);
    /// Releases every held key, as when the window loses the focus.
    void releaseAll();

signals:
    /// Sets were added, replaced or removed.
    void setsChanged();
    void enabledChanged();
    void heldChanged(int key, bool held);

private:
    struct Entry
    {
        Set set;
        QPointer<QObject> owner;
        std::vector<int> presses{}; ///< for each key the number of the press that holds it, or 0
    };

    std::pair<const Entry *, int> find(int key) const;
    std::pair<Entry *, int> find(int key);
    Entry *find(const QString &name);
    void act(int key, bool down);
    void releaseSet(const QString &name);
    void remove(QObject *owner);

    std::vector<Entry> m_entries;
    int m_presses = 0;
};

} // namespace tessa

/// Registers a set of handle keys in two groups for @p owner. The keys start disabled. @p places
/// names places on the handle, which this host ignores, since its places have no names.
void registerPhysicalButtons(QObject *owner, const QString &set,
                             const QList<tessa::PhysicalButton> &firstGroup,
                             const QList<tessa::PhysicalButton> &secondGroup,
                             const QStringList &places);

/// Enables or disables a whole set.
void enableRegisterPhysicalButtons(QObject *owner, const QString &set, bool enabled);
