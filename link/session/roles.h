#pragma once

#include <QMap>
#include <QString>

#include "controller/core/request.h"

namespace welmo::links {

/// What a user may do at a cell; each role may do what those before it may.
enum class Role { Nobody, Viewer, Operator, Programmer, Administrator };

/// As in the file of users: "operator".
QString roleName(Role role);

/// Whether the role may change a released file only as far as its limits allow.
inline bool isBound(Role role)
{
    return role < Role::Programmer;
}

/// What is needed for a request.
struct Need
{
    Role role = Role::Nobody; ///< Nobody: no user may do it
    bool control = false; ///< the pendant must have control as well
};

/// By one table; no user may do what is not in it. Every known user may stop a movement, with or
/// without control.
Need needOf(const controller::Request &request);

/// The users that a cell knows.
class Roles
{
public:
    Roles() = default;
    explicit Roles(QMap<QString, Role> users);

    /// Reads a file of lines "NAME ROLE"; if that fails there are no users, and @p problem says
    /// why.
    static Roles read(const QString &file, QString *problem);

    /// Role::Nobody for an unknown user.
    Role of(const QString &user) const { return m_users.value(user, Role::Nobody); }
    bool allows(const QString &user, const controller::Request &request) const;

private:
    QMap<QString, Role> m_users;
};

} // namespace welmo::links
