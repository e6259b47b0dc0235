#pragma once

#include <QFile>
#include <cstdio>

namespace testsupport {

/// The content of the file; empty if there is no such file.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes the file; ends the test program if that fails.
inline void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Runs a statement on a database by the program sqlite3. It uses no QProcess, which does not work
/// under emulation.
inline bool runSqlite(const QString &file, const QByteArray &sql)
{
    FILE *program = ::popen(qPrintable(QStringLiteral("sqlite3 '%1'").arg(file)), "w");
    return program
        && std::fwrite(sql.constData(), 1, size_t(sql.size()), program) == size_t(sql.size())
        && ::pclose(program) == 0;
}

} // namespace testsupport
