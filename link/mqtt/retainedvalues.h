#pragma once

#include <QMap>
#include <QVariant>
#include <functional>

#include "controller/core/registry.h"

namespace welmo::controller {
class Controller;
}

namespace welmo::links {

/// The values of a cell's nodes as they are published: as a whole, although the controller notifies
/// only changes.
class RetainedValues
{
public:
    /// @p key is the entry's, if entries are published separately; an invalid value removes it.
    using Tell =
        std::function<void(const QString &path, const QString &key, const QVariant &value)>;

    explicit RetainedValues(Tell tell);

    /// Publishes everything, also that entries are missing: those of another controller may be
    /// retained.
    void tellAll(controller::Controller &controller);
    /// @p values as in controller::Controller::setNotify().
    void update(const QString &path, const QVariant &values);

private:
    void tellEntries(const QString &path, const QVariantMap &entries);

    Tell m_tell;
    QMap<QString, controller::Registry::Entries> m_nodes;
    QMap<QString, QVariant> m_values;
};

} // namespace welmo::links
