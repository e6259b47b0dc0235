#include "kelp/jsonfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>

namespace kelp {

namespace {

struct JsonFile
{
    Q_DECLARE_TR_FUNCTIONS(JsonFile)
};

QString parseError(const QString &path, const QByteArray &bytes, const QJsonParseError &problem)
{
    const QByteArray before = bytes.left(problem.offset);
    const int line = before.count('\n') + 1;
    const int column = problem.offset - before.lastIndexOf('\n');
    return JsonFile::tr("%1:%2:%3: not valid JSON: %4")
        .arg(path)
        .arg(line)
        .arg(column)
        .arg(problem.errorString());
}

} // namespace

QJsonDocument readJsonFile(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = JsonFile::tr("%1: cannot be read: %2").arg(path, file.errorString());
        return {};
    }
    QByteArray bytes = file.readAll();
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &problem);
    if (document.isNull())
        *error = parseError(path, bytes, problem);
    return document;
}

bool writeJsonFile(const QString &path, const QJsonDocument &document, QString *error)
{
    QSaveFile file(path);
    // commit() alone does not notice a failed flush, and would replace the file with an empty one.
    if (file.open(QIODevice::WriteOnly) && file.write(document.toJson()) >= 0 && file.flush()
        && file.commit())
        return true;
    *error = JsonFile::tr("%1: cannot be written: %2").arg(path, file.errorString());
    return false;
}

} // namespace kelp
