#include "tl/charactercheck.h"

#include <QRegularExpression>

#include "tl/token.h"

using namespace welmo::tl;

namespace {

QStringList texts(const Tokens &tokens)
{
    QStringList list;
    list.reserve(tokens.size());
    for (const Token &token : tokens)
        list.append(token.text);
    return list;
}

} // namespace

QString CharacterCheck::checkQuotationMarks(const QString &text)
{
    static const QRegularExpression quoted(QStringLiteral("\"([^\"]*)\""));
    const QRegularExpressionMatch match = quoted.match(text);
    return match.hasMatch() ? match.captured(1) : QString();
}

QStringList CharacterCheck::splitTlCommand(const QString &line)
{
    return texts(splitArguments(line));
}

QStringList CharacterCheck::splitMoveTlCommand(const QString &line)
{
    return texts(splitMoveArguments(line));
}
