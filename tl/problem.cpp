#include "tl/problem.h"

#include <QCoreApplication>

#include "tl/text.h"

namespace welmo::tl {

QString shown(const char *message)
{
    return QCoreApplication::translate("ProgramLine", message);
}

QString Problem::english() const
{
    const QString more = detail ? filledIn(QString::fromLatin1(detail), names) : QString();
    return more.isEmpty() ? QString::fromLatin1(message)
                          : QString::fromLatin1(message) + QStringLiteral(": ") + more;
}

} // namespace welmo::tl
