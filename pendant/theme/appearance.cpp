#include "pendant/theme/appearance.h"

namespace welmo::pendant {

QStringList knownLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("zh_CN")};
}

QStringList knownThemes()
{
    return {QStringLiteral("light"), QStringLiteral("dark")};
}

QString themeFile(const QString &theme)
{
    return knownThemes().contains(theme) ? QStringLiteral(":/tessa/theme/%1.json").arg(theme)
                                         : theme;
}

} // namespace welmo::pendant
