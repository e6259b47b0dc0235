#include "tl/parse.h"

#include <algorithm>

#include "tl/readarguments.h"

namespace welmo::tl {

namespace {

bool startsComment(const QString &line, int at)
{
    return line.midRef(at, 2) == QLatin1String("//");
}

// Skips a "//" between two quotes, which is part of a name.
int findComment(const QString &line, int from)
{
    for (int i = from; i < line.size(); ++i) {
        if (startsComment(line, i))
            return i;
        if (line.at(i) == QLatin1Char('"'))
            i = std::max(i, line.indexOf(QLatin1Char('"'), i + 1));
    }
    return -1;
}

bool isComment(const QString &line, int at)
{
    return at < line.size()
        && (startsComment(line, at) || QStringView(u"#!").contains(line.at(at)));
}

void findCode(ParsedLine *line)
{
    const QString &text = line->text;
    int start = 0;
    while (start < text.size() && text.at(start).isSpace())
        ++start;
    line->commentStart = isComment(text, start) ? start : findComment(text, start);
    int end = line->commentStart < 0 ? text.size() : line->commentStart;
    while (end > start && (text.at(end - 1).isSpace() || text.at(end - 1) == QLatin1Char(';')))
        --end;
    line->codeStart = start;
    line->codeEnd = end;
}

bool endsWord(QChar character)
{
    return character.isSpace() || QStringView(u",;\"()").contains(character);
}

Token firstWord(const ParsedLine &line)
{
    const auto start = line.text.begin() + line.codeStart;
    const auto end = std::find_if(start, line.text.begin() + line.codeEnd, endsWord);
    return {line.text.mid(line.codeStart, int(end - start)), line.column()};
}

} // namespace

ParsedLine parse(const QString &line)
{
    ParsedLine parsed;
    parsed.text = line;
    findCode(&parsed);
    parsed.word = firstWord(parsed);
    parsed.instruction = findInstruction(parsed.word.text);
    if (parsed.instruction)
        readArguments(&parsed);
    return parsed;
}

ParsedLine parseAs(Word word, const QString &text)
{
    ParsedLine parsed;
    parsed.text = text;
    parsed.codeEnd = text.size();
    parsed.word = firstWord(parsed);
    parsed.instruction = &row(word);
    readArguments(&parsed);
    return parsed;
}

} // namespace welmo::tl
