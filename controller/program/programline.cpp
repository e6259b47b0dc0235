#include "controller/program/programline.h"

#include <optional>

namespace welmo::controller {

namespace {

constexpr QChar quote('"');

// Calls @p use with each character outside quotes and its position, until that returns false.
template<typename Use>
void forEachOutsideQuotes(const QString &text, Use use)
{
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == quote)
            quoted = !quoted;
        else if (!quoted && !use(text.at(i), i))
            return;
    }
}

QString withoutComment(const QString &line)
{
    if (line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char('!')))
        return {};
    int end = line.size();
    forEachOutsideQuotes(line, [&line, &end](QChar, int i) {
        if (line.midRef(i, 2) == QLatin1String("//"))
            end = i;
        return end == line.size();
    });
    QString rest = line.left(end).trimmed();
    if (rest.endsWith(QLatin1Char(';')))
        rest.chop(1);
    return rest.trimmed();
}

QStringList splitArguments(const QString &text)
{
    QStringList arguments;
    int depth = 0;
    int start = 0;
    const auto take = [&](int end) {
        arguments.append(text.mid(start, end - start).trimmed());
        start = end + 1;
    };
    forEachOutsideQuotes(text, [&](QChar character, int i) {
        if (character == QLatin1Char('('))
            ++depth;
        else if (character == QLatin1Char(')'))
            --depth;
        else if (character == QLatin1Char(',') && depth <= 0)
            take(i);
        return true;
    });
    if (!text.trimmed().isEmpty())
        take(text.size());
    return arguments;
}

int wordLength(const QString &line)
{
    int length = 0;
    while (length < line.size() && !line.at(length).isSpace() && line.at(length) != quote)
        ++length;
    return length;
}

std::optional<PointTerm::Kind> kindNamed(const QString &function)
{
    if (function == QLatin1String("Offs"))
        return PointTerm::Kind::Offs;
    if (function == QLatin1String("RelTool") || function == QLatin1String("Reltool"))
        return PointTerm::Kind::RelTool;
    return {};
}

Reply unreadable(const QString &argument)
{
    return Reply::refused(BadPayload, argument + QStringLiteral(" is no point"));
}

} // namespace

std::vector<ProgramLine> readProgram(const QString &text)
{
    std::vector<ProgramLine> program;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = withoutComment(lines.at(i).trimmed());
        const int length = wordLength(line);
        if (!line.isEmpty())
            program.push_back({i + 1, line.left(length), splitArguments(line.mid(length))});
    }
    return program;
}

bool isQuoted(const QString &argument)
{
    return argument.size() >= 2 && argument.startsWith(quote) && argument.endsWith(quote);
}

QString unquoted(const QString &argument)
{
    return isQuoted(argument) ? argument.mid(1, argument.size() - 2) : argument;
}

Reply PointTerm::read(const QString &argument, PointTerm *term)
{
    const int open = argument.indexOf(QLatin1Char('('));
    if (open < 0) {
        *term = {Kind::Plain, argument, {}};
        return {};
    }
    const auto kind = kindNamed(argument.left(open).trimmed());
    if (!kind || !argument.endsWith(QLatin1Char(')')))
        return unreadable(argument);
    const QStringList items = splitArguments(argument.mid(open + 1, argument.size() - open - 2));
    const int most = *kind == Kind::Offs ? 3 : 6;
    if (items.isEmpty() || items.size() > 1 + most)
        return unreadable(argument);
    *term = {*kind, items.first(), {}};
    for (int i = 1; i < items.size(); ++i) {
        bool good = false;
        term->numbers[size_t(i - 1)] = items.at(i).toDouble(&good);
        if (!good)
            return unreadable(argument);
    }
    return {};
}

} // namespace welmo::controller
