#include "tl/finding.h"

#include <QCoreApplication>

#include "tl/problem.h"
#include "tl/text.h"

namespace welmo::tl {

QString Finding::text() const
{
    const QString said = message ? shown(message) : QString();
    if (!detail)
        return said;
    const QString more = filledIn(QCoreApplication::translate("ProgramCheck", detail), names);
    return said.isEmpty() ? more : said + QStringLiteral(": ") + more;
}

QString Finding::kindName() const
{
    switch (kind) {
    case Kind::Refused:
        return QStringLiteral("refused");
    case Kind::Unknown:
        return QStringLiteral("unknown");
    case Kind::Misread:
        return QStringLiteral("misread");
    case Kind::Unpaired:
        return QStringLiteral("unpaired");
    case Kind::Doubtful:
        return QStringLiteral("doubtful");
    }
    return {};
}

} // namespace welmo::tl
