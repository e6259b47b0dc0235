#include "tl/finding.h"

#include <QCoreApplication>

#include "tl/problem.h"

namespace welmo::tl {

namespace {

constexpr int longestName = 60;

// A name may be anything that a line can hold, a megabyte of escape sequences included.
QString presentable(const QString &name)
{
    QString text = name.left(longestName);
    for (QChar &character : text) {
        if (!character.isPrint())
            character = QLatin1Char('?');
    }
    return name.size() > longestName ? text + QChar(0x2026) : text;
}

} // namespace

QString Finding::text() const
{
    QString said = message ? shown(message) : QString();
    if (!detail)
        return said;
    QString more = QCoreApplication::translate("ProgramCheck", detail);
    if (names.size() == 1)
        more = more.arg(presentable(names.first()));
    else if (names.size() == 2)
        more = more.arg(presentable(names.first()), presentable(names.last()));
    return said.isEmpty() ? more : said + QStringLiteral(": ") + more;
}

QString Finding::kindName() const
{
    switch (kind) {
    case Kind::Unknown:
        return QStringLiteral("unknown");
    case Kind::Misread:
        return QStringLiteral("misread");
    case Kind::Unpaired:
        return QStringLiteral("unpaired");
    default:
        return QStringLiteral("refused");
    }
}

} // namespace welmo::tl
