#pragma once

#include <QFile>
#include <cstdio>

namespace testsupport {

/// What the file holds; nothing when there is none.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Ends the test when it cannot be written, for nothing after it would be true.
inline void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Changes a database as any other program would. Not by a QProcess, which does not work under
/// emulation.
inline bool runSqlite(const QString &file, const QByteArray &sql)
{
    FILE *program = ::popen(qPrintable(QStringLiteral("sqlite3 '%1'").arg(file)), "w");
    return program
        && std::fwrite(sql.constData(), 1, size_t(sql.size()), program) == size_t(sql.size())
        && ::pclose(program) == 0;
}

} // namespace testsupport
