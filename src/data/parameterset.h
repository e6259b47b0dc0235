#pragma once

#include <QString>
#include <QStringList>

namespace welmo {

/// The names of one set of numbered parameter files, on the controller and in the module's tree.
struct ParameterSet
{
    QString section; ///< branch of the module's tree
    QString name; ///< set name, used in every path
    QString prefix; ///< of the file names

    static constexpr int fileCount = 40;

    /// "arcondata1" to "arcondata40".
    QStringList fileNames() const { return fileNames(allNumbers()); }
    QStringList fileNames(const QList<int> &numbers) const;
    /// The controller's node, whose entries are the files.
    QString node() const { return QStringLiteral("arc_weld.%1").arg(name); }
    /// A file's local copy, below the module's root.
    QString localPath(const QString &file) const
    {
        return QStringLiteral("%1.%2.%3").arg(section, name, file);
    }
    /// The factory defaults, below the module's root.
    QString defaultPath() const { return localPath(QStringLiteral("default")); }

private:
    static QList<int> allNumbers();
};

namespace sets {

const ParameterSet &arcon();
const ParameterSet &weld();
const ParameterSet &arcoff();
const ParameterSet &weave();
const ParameterSet &seg();

} // namespace sets

} // namespace welmo
