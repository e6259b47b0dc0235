#pragma once

#include <QFile>
#include <sqlite3.h>

/// Runs @p sql on a connection of its own, as a tool that looks into the file would.
inline bool runSql(const QString &file, const char *sql)
{
    sqlite3 *handle = nullptr;
    const bool good = sqlite3_open(QFile::encodeName(file).constData(), &handle) == SQLITE_OK
        && sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(handle);
    return good;
}
