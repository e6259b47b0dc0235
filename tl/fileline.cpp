#include "tl/fileline.h"

#include <algorithm>

#include "schema/filesets.h"
#include "tl/charactercheck.h"
#include "tl/text.h"

namespace welmo::tl {

namespace {

struct FileSet
{
    QStringList names;
    const char *message; ///< when an argument is no file of the set
};

// What is different between the instructions that name files.
struct Grammar
{
    Instruction instruction;
    Tokens (*split)(const QString &line);
    Qt::CaseSensitivity sensitivity;
    std::vector<FileSet> sets; ///< one for each argument
};

const Grammar &grammarOf(Instruction instruction)
{
    static const std::vector<Grammar> grammars{
        {Instruction::ArcOn,
         splitArguments,
         Qt::CaseInsensitive,
         {{schema::arcOn().fileNames(), messages::arconData},
          {schema::weld().fileNames(), messages::arcData}}},
        {Instruction::ArcOff,
         splitArguments,
         Qt::CaseInsensitive,
         {{schema::arcOff().fileNames(), messages::arcoffData}}},
        {Instruction::WeaveOn,
         splitArguments,
         Qt::CaseSensitive,
         {{schema::weave().fileNames(), messages::weaveData}}},
        {Instruction::SegOn,
         splitMoveArguments,
         Qt::CaseSensitive,
         {{schema::seg().fileNames(), messages::segData}}},
    };
    static const Grammar none{Instruction::None, splitArguments, Qt::CaseSensitive, {}};
    const auto grammar = std::find_if(grammars.begin(), grammars.end(), [&](const Grammar &g) {
        return g.instruction == instruction;
    });
    return grammar == grammars.end() ? none : *grammar;
}

std::optional<QString> lookUp(const QString &name, const FileSet &set, Qt::CaseSensitivity cs)
{
    const auto known = std::find_if(set.names.begin(), set.names.end(),
                                    [&](const QString &n) { return n.compare(name, cs) == 0; });
    return known == set.names.end() ? std::nullopt : std::make_optional(*known);
}

} // namespace

FileLine parseFileLine(Instruction instruction, const QString &line)
{
    const Grammar &grammar = grammarOf(instruction);
    const size_t count = grammar.sets.size();
    FileLine result;
    result.files.resize(count);
    const Tokens tokens = grammar.split(line);
    if (size_t(tokens.size()) != count + 1) {
        result.problems.append(commandProblem(instruction, line));
        return result;
    }
    for (size_t i = 0; i < count; ++i)
        result.columns.push_back(tokens.at(int(i) + 1).column);
    const auto failed = [&](size_t argument) {
        result.problems.append({grammar.sets[argument].message, result.columns[argument]});
        return result;
    };
    for (size_t i = 0; i < count; ++i) {
        const QString name = CharacterCheck::checkQuotationMarks(tokens.at(int(i) + 1).text);
        if (name.isNull())
            return failed(i);
        result.names.append(name);
    }
    for (size_t i = 0; i < count; ++i) {
        result.files[i] = lookUp(result.names.at(int(i)), grammar.sets[i], grammar.sensitivity);
        if (!result.files[i])
            return failed(i);
    }
    return result;
}

QString formatFileLine(Instruction instruction, const QStringList &files)
{
    QStringList quoted;
    for (const QString &file : files)
        quoted.append(QLatin1Char('"') + nameText(file) + QLatin1Char('"'));
    return instructionName(instruction) + QLatin1Char(' ') + quoted.join(QLatin1Char(','));
}

QStringList fileNames(Instruction instruction, int argument)
{
    const auto &sets = grammarOf(instruction).sets;
    return size_t(argument) < sets.size() ? sets[size_t(argument)].names : QStringList();
}

const QStringList &weaveFileNames()
{
    return grammarOf(Instruction::WeaveOn).sets.front().names;
}

} // namespace welmo::tl
