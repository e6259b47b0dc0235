#include "vu/paths.h"

#include <QCoreApplication>

namespace vu {

QString languagePath(const QString &name, LanguageType type, const QString &module)
{
    const QString folder = type == LanguageType::Compiled
        ? QStringLiteral(":/%1/language").arg(module)
        : QCoreApplication::applicationDirPath() + QStringLiteral("/language");
    return QStringLiteral("%1/%2.qm").arg(folder, name);
}

QString templatePath(const QString &module, const QString &name)
{
    return QStringLiteral(":/%1/template/%2.json").arg(module, name);
}

} // namespace vu
