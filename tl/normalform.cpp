#include "tl/normalform.h"

#include <algorithm>

#include "tl/lineformat.h"
#include "tl/parse.h"

namespace welmo::tl {

namespace {

// The code with the tabs between its words replaced by blanks. A tab in a quoted name or in a call
// stays, since it belongs to what is named.
QString withoutTabs(const QString &code)
{
    QString tidied = code;
    tidied.replace(QLatin1Char('\t'), QLatin1Char(' '));
    for (const Token &token : splitMoveArguments(code, 0, code.size()))
        tidied.replace(token.column - 1, token.text.size(), token.text);
    return tidied;
}

bool isGap(QStringView gap, int mostCommas)
{
    return !gap.isEmpty() && std::count(gap.begin(), gap.end(), QLatin1Char(',')) <= mostCommas
        && std::all_of(gap.begin(), gap.end(), [](QChar character) {
               return character == QLatin1Char(' ') || character == QLatin1Char(',');
           });
}

// True if the line has only the word and its arguments, and no argument is empty.
bool isComplete(const ParsedLine &line)
{
    const Tokens &tokens = line.tokens;
    if (tokens.isEmpty() || tokens.first().text != line.instruction->text()
        || tokens.last().end() != line.codeEnd + 1)
        return false;
    for (int i = 1; i < tokens.size(); ++i) {
        const int start = tokens.at(i - 1).end() - 1;
        const QStringView gap = QStringView(line.text).mid(start, tokens.at(i).column - 1 - start);
        if (!isGap(gap, i == 1 ? 0 : 1))
            return false;
    }
    return true;
}

QString normalFiles(const ParsedLine &line)
{
    if (!line.problems.isEmpty())
        return {};
    QStringList names;
    for (const auto &file : line.files) {
        names.append(*file);
        if (line.tokens.at(names.size()).text.size() != file->size() + 2) // the two quotes only
            return {};
    }
    return formatFileLine(line.instruction->word, names);
}

QString normalTime(const ParsedLine &line)
{
    if (!line.seconds)
        return {};
    const Word word = line.instruction->word;
    const QString normal = formatTimedLine(word, *line.seconds);
    return parseAs(word, normal).seconds == line.seconds ? normal : QString();
}

QString normalMove(const ParsedLine &line)
{
    if (line.isRefused)
        return {};
    QStringList arguments;
    for (const auto &point : {line.aux, line.target}) {
        if (!point)
            continue;
        arguments.append(point->reading.normalForm());
        if (arguments.last().isNull())
            return {};
    }
    for (int i = arguments.size() + 1; i < line.tokens.size(); ++i)
        arguments.append(line.tokens.at(i).text);
    return line.instruction->text() + QLatin1Char(' ') + arguments.join(QLatin1Char(','));
}

QString normalOf(const ParsedLine &line)
{
    switch (line.instruction->kind) {
    case Kind::Files:
        return normalFiles(line);
    case Kind::Move:
        return normalMove(line);
    case Kind::Timed:
        return normalTime(line);
    case Kind::Bare:
        return line.isRefused ? QString() : line.code();
    }
    return {};
}

bool keepsPoint(const std::optional<ParsedLine::Point> &asked,
                const std::optional<ParsedLine::Point> &got)
{
    return !asked || (got && got->reading.point == asked->reading.point);
}

bool keepsName(const std::optional<Token> &asked, const std::optional<Token> &got)
{
    return !asked || (got && got->text == asked->text);
}

bool keepsMove(const ParsedLine &asked, const ParsedLine &got)
{
    return keepsPoint(asked.aux, got.aux) && keepsPoint(asked.target, got.target)
        && keepsName(asked.speed, got.speed) && keepsName(asked.zone, got.zone)
        && keepsName(asked.tool, got.tool) && keepsName(asked.wobj, got.wobj)
        && asked.weaveFile() == got.weaveFile();
}

} // namespace

QString normalCode(const ParsedLine &line)
{
    if (!line.instruction || line.instruction->standing == Standing::Host)
        return {};
    const QString code = line.code();
    if (const QString tidied = withoutTabs(code); tidied != code)
        return normalCode(parse(tidied));
    return isComplete(line) ? normalOf(line) : QString();
}

QString normalForm(const ParsedLine &line)
{
    const QString code = normalCode(line);
    const QString after = line.after();
    return code.isNull() ? code
                         : line.before() + code + (after.trimmed().isEmpty() ? QString() : after);
}

QString normalForm(const QString &line)
{
    return normalForm(parse(line));
}

bool keepsAll(const ParsedLine &line, const QString &written)
{
    const QString normal = normalCode(line);
    if (normal.isNull())
        return false;
    const ParsedLine asked = parse(normal);
    const ParsedLine got = parse(written);
    if (!got.instruction || got.instruction != asked.instruction)
        return false;
    return asked.instruction->kind == Kind::Move ? keepsMove(asked, got)
                                                 : normal == normalCode(got);
}

} // namespace welmo::tl
