#include "tl/charactercheck.h"

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
    const int open = text.indexOf(QLatin1Char('"'));
    const int close = open < 0 ? -1 : text.indexOf(QLatin1Char('"'), open + 1);
    if (close < 0 || !text.isValidUtf16())
        return {};
    return close == open + 1 ? QLatin1String("") : text.mid(open + 1, close - open - 1);
}

QStringList CharacterCheck::splitTlCommand(const QString &line)
{
    return texts(splitArguments(line, 0, line.size()));
}

QStringList CharacterCheck::splitMoveTlCommand(const QString &line)
{
    return texts(splitMoveArguments(line, 0, line.size()));
}
