#pragma once

#include <QString>

class QSqlDatabase;

namespace welmo::book {

/// Where a database is: an SQLite file, or a database of a PostgreSQL server.
struct Place
{
    Place(const QString &path = {}) // a file is a place
        : file(path)
    { }

    QString file; ///< empty: at a server
    QString host; ///< empty: the server of this machine, by its socket
    int port = -1; ///< -1: the usual one
    QString user;
    QString name;
    QString password; ///< empty: the server, or libpq's own files, must do without

    bool isServer() const { return file.isEmpty(); }
    /// The server's certificate is then verified, and nothing is sent in the clear.
    bool isAnotherMachine() const;
    /// As people write it, without the password.
    QString text() const;
    /// Tells Qt where to connect; not for files.
    void describe(QSqlDatabase *database) const;
};

/// Reads an address, postgresql://USER@HOST[:PORT]/NAME; the password is taken from the
/// environment, WELMO_DATABASE_PASSWORD. Returns a complaint of one line, or an empty string.
QString parsePlace(const QString &address, Place *place);

} // namespace welmo::book
