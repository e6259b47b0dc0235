#include "tl/token.h"

namespace welmo::tl {

// The scanners return what the expressions "[ ,]" and "(\w+\([^)]+\)|"[^"]*"|\w+)" would match.
// Those refuse a whole text with half a surrogate pair, so the scanners do as well.

namespace {

bool isText(const QString &line, int from, int to)
{
    return QStringView(line).mid(from, to - from).isValidUtf16();
}

int indexOf(const QString &line, QChar character, int from, int to)
{
    const int index = line.indexOf(character, from);
    return index < to ? index : -1;
}

// The end of the token that starts at @p from; @p from if there is none.
int tokenEnd(const QString &line, int from, int to, int lastClosing)
{
    if (line.at(from) == QLatin1Char('"'))
        return qMax(from, indexOf(line, QLatin1Char('"'), from + 1, to) + 1);
    int end = from;
    while (end < to && isWordCharacter(line.at(end)))
        ++end;
    if (end == from || end > lastClosing)
        return end;
    return qMax(end, callEnd(line, end, to));
}

} // namespace

bool isWordCharacter(QChar character)
{
    const ushort c = character.unicode();
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

int callEnd(const QString &line, int nameEnd, int to)
{
    if (nameEnd + 2 >= to || line.at(nameEnd) != QLatin1Char('(')
        || line.at(nameEnd + 1) == QLatin1Char(')'))
        return -1;
    const int closing = indexOf(line, QLatin1Char(')'), nameEnd + 2, to);
    return closing < 0 ? -1 : closing + 1;
}

Tokens splitArguments(const QString &line, int from, int to)
{
    Tokens tokens;
    const bool cuts = isText(line, from, to);
    int start = from;
    for (int i = from; i <= to; ++i) {
        const bool isEnd = i == to;
        if (!isEnd && !(cuts && (line.at(i) == QLatin1Char(' ') || line.at(i) == QLatin1Char(','))))
            continue;
        if (i > start)
            tokens.append({line.mid(start, i - start), start + 1});
        start = i + 1;
    }
    return tokens;
}

Tokens splitMoveArguments(const QString &line, int from, int to)
{
    Tokens tokens;
    if (!isText(line, from, to))
        return tokens;
    // After the last closing parenthesis the end of an expression need not be searched for.
    const int lastClosing = to > from ? line.lastIndexOf(QLatin1Char(')'), to - 1) : -1;
    bool mayQuote = true; // until a quote without a partner was found
    for (int i = from; i < to;) {
        const bool isQuote = line.at(i) == QLatin1Char('"');
        const int end = isQuote && !mayQuote ? i : tokenEnd(line, i, to, lastClosing);
        if (end > i)
            tokens.append({line.mid(i, end - i), i + 1});
        else if (isQuote)
            mayQuote = false;
        i = qMax(end, i + 1);
    }
    return tokens;
}

} // namespace welmo::tl
