#include "tl/token.h"

#include <QRegularExpression>
#include <algorithm>

namespace welmo::tl {

namespace {

// The matches that start at @p offset or later, and not after @p last.
Tokens matches(const QRegularExpression &pattern, const QString &line, int offset, int last)
{
    Tokens tokens;
    auto found = pattern.globalMatch(line, offset);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        if (match.capturedStart() > last)
            break;
        tokens.append({match.captured(), match.capturedStart() + 1});
    }
    return tokens;
}

} // namespace

Tokens splitArguments(const QString &line)
{
    static const QRegularExpression separator(QStringLiteral("[ ,]"));
    Tokens tokens;
    int start = 0;
    const auto add = [&](int end) {
        if (end > start)
            tokens.append({line.mid(start, end - start), start + 1});
        start = end + 1;
    };
    auto found = separator.globalMatch(line);
    while (found.hasNext())
        add(found.next().capturedStart());
    add(line.size());
    return tokens;
}

Tokens splitMoveArguments(const QString &line)
{
    static const QRegularExpression all(QStringLiteral("(\\w+\\([^)]+\\)|\\\"[^\\\"]*\\\"|\\w+)"));
    static const QRegularExpression withoutExpressions(QStringLiteral("(\\\"[^\\\"]*\\\"|\\w+)"));
    // No expression ends after the last ")". To look for one there all the same would take
    // quadratic time on a long line of opening parentheses.
    const int lastClosing = line.lastIndexOf(QLatin1Char(')'));
    Tokens tokens;
    if (lastClosing >= 0)
        tokens = matches(all, line, 0, lastClosing);
    const int rest = tokens.isEmpty() ? 0 : tokens.last().end() - 1;
    return tokens + matches(withoutExpressions, line, rest, line.size());
}

int textColumn(const QString &line)
{
    const auto first = std::find_if(line.begin(), line.end(),
                                    [](QChar character) { return !character.isSpace(); });
    return first == line.end() ? 1 : int(first - line.begin()) + 1;
}

} // namespace welmo::tl
