#include "pendant/program/linecolours.h"

#include "tessa/tlmanager.h"
#include "tl/instruction.h"

namespace welmo::pendant {

namespace {

bool isComment(const QString &rest)
{
    return rest.startsWith(QLatin1String("//")) || rest.startsWith(QLatin1Char('#'))
        || rest.startsWith(QLatin1Char('!'));
}

const char *wordColor(const QString &word)
{
    const auto *manager = tessa::TlManager::getTlManager();
    return manager->propertyWidgetCreators.contains(word) ? "topic" : "text";
}

} // namespace

QVector<ColouredPart> colouredParts(const QString &line)
{
    const QString word = welmo::tl::firstWord(line).text;
    const int start = line.indexOf(word);
    if (word.isEmpty() || isComment(line.trimmed()))
        return {{line, isComment(line.trimmed()) ? "ok" : "text"}};
    const int end = start + word.size();
    QVector<ColouredPart> parts{{line.left(end), wordColor(word)}};
    int from = end;
    const auto take = [&](int to, const char *color) {
        if (to > from)
            parts.append({line.mid(from, to - from), color});
        from = to;
    };
    for (int i = end; i < line.size(); ++i) {
        const int close =
            line.at(i) == QLatin1Char('"') ? line.indexOf(QLatin1Char('"'), i + 1) : -1;
        if (close > 0) {
            take(i, "text");
            take(close + 1, "warning");
            i = close;
        } else if (line.midRef(i, 2) == QLatin1String("//")) {
            take(i, "text");
            take(line.size(), "ok");
            break;
        }
    }
    take(line.size(), "text");
    return parts;
}

} // namespace welmo::pendant
