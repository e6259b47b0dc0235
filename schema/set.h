#pragma once

#include <QString>
#include <vector>

#include "schema/names.h"

namespace welmo::schema {

class Row;

/// Values that the controller keeps together. A derived set declares its rows as members, which add
/// themselves here in their order.
class Set
{
public:
    /// @p setName is the set's node below "arc_weld."; @p branch is the branch of the module's
    /// tree.
    Set(const QString &branch, const QString &setName)
        : section(branch)
        , name(setName)
    { }
    virtual ~Set() = default;
    Q_DISABLE_COPY(Set)

    const QString section;
    const QString name;

    /// The controller's node.
    QString node() const { return names::arcWeldPrefix + name; }
    const std::vector<const Row *> &rows() const { return m_rows; }

private:
    friend class Row;
    std::vector<const Row *> m_rows;
};

} // namespace welmo::schema
