#pragma once

#include <QMap>
#include <QVariant>
#include <functional>

#include "controller/core/registry.h"

namespace welmo::controller {
class Controller;
}

namespace welmo::links {

/// The values of a cell's nodes as they are told to everybody: whole, while the controller tells
/// what changed.
class RetainedValues
{
public:
    /// @p key is that of an entry that has a value of its own; an invalid value: there is none.
    using Tell =
        std::function<void(const QString &path, const QString &key, const QVariant &value)>;

    explicit RetainedValues(Tell tell);

    /// Tells everything, also which entries are not there: another controller's may be kept.
    void tellAll(controller::Controller &controller);
    /// @p values as of controller::Controller::setNotify().
    void update(const QString &path, const QVariant &values);

private:
    void tellEntries(const QString &path, const QVariantMap &entries);

    Tell m_tell;
    QMap<QString, controller::Registry::Entries> m_nodes;
    QMap<QString, QVariant> m_values;
};

} // namespace welmo::links
