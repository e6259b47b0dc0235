#pragma once

#include <QMap>
#include <QString>

#include "controller/core/request.h"

namespace welmo::links {

/// What a user may do at a cell; each may do what the ones before may.
enum class Role { Nobody, Viewer, Operator, Programmer, Administrator };

/// As in the file of users: "operator".
QString roleName(Role role);

/// What a request takes.
struct Need
{
    Role role = Role::Nobody; ///< Nobody: it is allowed to nobody
    bool control = false; ///< the pendant has to hold control as well
};

/// By one table; what is not in it is allowed to nobody. What stops a movement is allowed to every
/// user that the cell knows, in control or not.
Need needOf(const controller::Request &request);

/// The users that a cell knows.
class Roles
{
public:
    Roles() = default;
    explicit Roles(QMap<QString, Role> users);

    /// From a file of lines "NAME ROLE"; nothing is read, and @p problem says why, when it cannot
    /// be used.
    static Roles read(const QString &file, QString *problem);

    /// Nobody, for a user that the cell does not know.
    Role of(const QString &user) const { return m_users.value(user, Role::Nobody); }
    bool allows(const QString &user, const controller::Request &request) const;

private:
    QMap<QString, Role> m_users;
};

} // namespace welmo::links
