#pragma once

#include <QStringList>

#include "schema/row.h"

namespace welmo::schema {

/// A set of numbered parameter files: each has the set's rows and a name of its own.
class FileSet : public Set
{
public:
    static constexpr int fileCount = 40;

    enum class Removal { Offered, None };

    FileSet(const QString &branch, const QString &setName, const QString &filePrefix,
            Removal removal)
        : Set(branch, setName)
        , prefix(filePrefix)
        , isRemovable(removal == Removal::Offered)
    { }

    const QString prefix; ///< a file's name is the prefix and its number
    const bool isRemovable; ///< the controller has a command that removes files

    FileNameRow fileName{*this};
    TextRow annotation{*this, "annotation"};

    /// "arcondata1" to "arcondata40".
    QStringList fileNames() const;
    QStringList fileNames(const QList<int> &numbers) const;
    /// True for a name that a file of the set can have.
    bool hasFile(const QString &file) const;
    QString removeCommand() const { return names::removePrefix + name; }
    /// A file's local copy, below the module's root.
    QString localPath(const QString &file) const
    {
        return QStringLiteral("%1.%2.%3").arg(section, name, file);
    }
    /// The factory defaults, below the module's root.
    QString defaultPath() const { return localPath(QStringLiteral("default")); }
};

} // namespace welmo::schema
