#include "schema/fileset.h"

namespace welmo::schema {

QStringList FileSet::fileNames() const
{
    QList<int> all;
    for (int number = 1; number <= fileCount; ++number)
        all.append(number);
    return fileNames(all);
}

QStringList FileSet::fileNames(const QList<int> &numbers) const
{
    QStringList files;
    for (int number : numbers)
        files.append(prefix + QString::number(number));
    return files;
}

bool FileSet::hasFile(const QString &file) const
{
    const QString digits = file.mid(prefix.size());
    const int number = digits.toInt();
    return file.startsWith(prefix) && number >= 1 && number <= fileCount
        && digits == QString::number(number);
}

} // namespace welmo::schema
