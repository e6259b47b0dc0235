#include "tl/readarguments.h"

#include <QCoreApplication>
#include <algorithm>

#include "tl/charactercheck.h"
#include "tl/parsedline.h"
#include "tl/text.h"

namespace welmo::tl {

namespace {

constexpr auto readsLike = QT_TRANSLATE_NOOP("ProgramCheck", "the line reads %1");
constexpr auto filesAre = QT_TRANSLATE_NOOP("ProgramCheck", "%1: files are %2 to %3");
constexpr auto wantsQuotes =
    QT_TRANSLATE_NOOP("ProgramCheck", "%1: a file's name stands in quotes");
constexpr auto noTime = QT_TRANSLATE_NOOP("ProgramCheck", "%1 is no time in seconds");
constexpr auto tooShort = QT_TRANSLATE_NOOP("ProgramCheck", "%1: the shortest time is %2 s");
constexpr auto readAs = QT_TRANSLATE_NOOP("ProgramCheck", "%1 is read as %2");
constexpr auto noName = QT_TRANSLATE_NOOP("ProgramCheck", "nothing can have the name %1");

void refuse(ParsedLine *line)
{
    const Instruction &row = *line->instruction;
    const int column = line->hasCode() ? line->column() : 1;
    line->isRefused = true;
    line->problems.append({row.commandError, column, readsLike, {QString::fromLatin1(row.syntax)}});
}

Problem noFile(const FileSet &set, const Token &token, const QString &name)
{
    const QStringList &files = fileNames(set);
    return {set.error, token.column, filesAre, {name, files.first(), files.last()}};
}

Problem unquoted(const char *error, const Token &token)
{
    return {error, token.column, wantsQuotes, {token.text}};
}

std::optional<QString> lookUp(const QString &name, const FileSet &set, Qt::CaseSensitivity cs)
{
    const QStringList &files = fileNames(set);
    const auto known = std::find_if(files.begin(), files.end(),
                                    [&](const QString &n) { return n.compare(name, cs) == 0; });
    return known == files.end() ? std::nullopt : std::make_optional(*known);
}

// All quotes are checked before names are looked up. The first problem stops the reading; what was
// recognised before it stays.
void readFiles(ParsedLine *line)
{
    const Instruction &row = *line->instruction;
    line->files.resize(size_t(row.fileCount));
    if (line->tokens.size() != row.fileCount + 1)
        return refuse(line);
    for (int i = 0; i < row.fileCount; ++i) {
        const Token &token = line->tokens.at(i + 1);
        const QString name = CharacterCheck::checkQuotationMarks(token.text);
        if (name.isNull())
            return line->problems.append(unquoted(row.files[i].error, token));
        line->names.append(name);
    }
    for (int i = 0; i < row.fileCount; ++i) {
        auto &file = line->files[size_t(i)];
        file = lookUp(line->names.at(i), row.files[i], row.caseOfFiles);
        if (!file)
            return line->problems.append(
                noFile(row.files[i], line->tokens.at(i + 1), line->names.at(i)));
    }
}

// "1,5" is one word, a time written with a comma; "1, 5" are two times.
bool isOneWord(const ParsedLine &line)
{
    const int from = line.tokens.at(1).column - 1;
    const int to = line.tokens.last().end() - 1;
    return !line.text.midRef(from, to - from).contains(QLatin1Char(' '));
}

void readTime(ParsedLine *line)
{
    const Instruction &row = *line->instruction;
    const Tokens &tokens = line->tokens;
    if (tokens.size() < 2 || !isOneWord(*line))
        return refuse(line);
    const int column = tokens.at(1).column;
    const QString word = line->text.mid(column - 1, tokens.last().end() - column);
    const std::optional<double> seconds = readNumber(word);
    if (!seconds)
        line->problems.append({row.timeError, column, noTime, {word}});
    else if (*seconds < row.shortest)
        line->problems.append({row.timeError, column, tooShort, {word, numberText(row.shortest)}});
    else
        line->seconds = seconds;
}

void readPointAt(ParsedLine *line, int index, std::optional<ParsedLine::Point> *point)
{
    const Token &token = line->tokens.at(index);
    *point = ParsedLine::Point{token, readPoint(token.text)};
    const PointReading &reading = (*point)->reading;
    if (!reading.isAsWritten)
        line->problems.append({messages::point,
                               token.column,
                               readAs,
                               {token.text, reading.point.format(reading.spelling)},
                               Problem::Kind::Misread});
}

// The place decides what an argument is: a weave file in the place of the work object is read as
// the work object.
void readName(ParsedLine *line, int index, const char *message, std::optional<Token> *name)
{
    if (index >= line->tokens.size())
        return;
    *name = line->tokens.at(index);
    const QString &text = (*name)->text;
    if (text.contains(QLatin1Char('"')) || text.contains(QLatin1Char('(')))
        line->problems.append({message, (*name)->column, noName, {text}});
}

void readWeave(ParsedLine *line, int index)
{
    if (index >= line->tokens.size())
        return;
    line->weave = line->tokens.at(index);
    const QString name = CharacterCheck::checkQuotationMarks(line->weave->text);
    if (name.isNull())
        line->problems.append(unquoted(messages::weaveData, *line->weave));
    else if (name != noWeave && !weaveFileNames().contains(name))
        line->problems.append(noFile(row(Word::WeaveOn).files[0], *line->weave, name));
}

void readMove(ParsedLine *line)
{
    const Instruction &row = *line->instruction;
    const int fewest = row.points + 4; // the word, speed, zone and tool
    const int most = fewest + (row.mayWeave ? 2 : 1);
    if (line->tokens.size() < fewest || line->tokens.size() > most)
        return refuse(line);
    if (row.points == 2)
        readPointAt(line, 1, &line->aux);
    readPointAt(line, row.points, &line->target);
    readName(line, row.points + 1, messages::speed, &line->speed);
    readName(line, row.points + 2, messages::zone, &line->zone);
    readName(line, row.points + 3, messages::tool, &line->tool);
    readName(line, fewest, messages::wobj, &line->wobj);
    readWeave(line, fewest + 1);
}

// Compares the whole code, since white space around the word is wrong too.
void readBare(ParsedLine *line)
{
    if (line->code() != line->instruction->text())
        refuse(line);
}

Tokens split(const ParsedLine &line)
{
    switch (line.instruction->splitter) {
    case Instruction::Splitter::Blanks:
        return splitArguments(line.text, line.codeStart, line.codeEnd);
    case Instruction::Splitter::Expressions:
        return splitMoveArguments(line.text, line.codeStart, line.codeEnd);
    }
    return {};
}

} // namespace

void readArguments(ParsedLine *line)
{
    line->tokens = split(*line);
    switch (line->instruction->kind) {
    case Kind::Files:
        return readFiles(line);
    case Kind::Move:
        return readMove(line);
    case Kind::Timed:
        return readTime(line);
    case Kind::Bare:
        return readBare(line);
    }
}

} // namespace welmo::tl
