#include "tl/instruction.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "schema/filesets.h"

namespace welmo::tl {

namespace {

constexpr FileSet arconFiles{[] { return schema::arcOn().fileNames(); }, messages::arconData};
constexpr FileSet arcFiles{[] { return schema::weld().fileNames(); }, messages::arcData};
constexpr FileSet arcoffFiles{[] { return schema::arcOff().fileNames(); }, messages::arcoffData};
constexpr FileSet weaveFiles{[] { return schema::weave().fileNames(); }, messages::weaveData};
constexpr FileSet segFiles{[] { return schema::seg().fileNames(); }, messages::segData};

constexpr Instruction arc(Word word, const char *name, const char *syntax, const char *error,
                          FileSet first, FileSet second = {})
{
    Instruction row{word, name, Kind::Files, Standing::Registered, syntax, error};
    row.fileCount = second.names ? 2 : 1;
    row.files[0] = first;
    row.files[1] = second;
    row.caseOfFiles = Qt::CaseInsensitive;
    return row;
}

constexpr Instruction file(Word word, const char *name, Standing standing, const char *syntax,
                           const char *error, FileSet set, Instruction::Splitter splitter)
{
    Instruction row{word, name, Kind::Files, standing, syntax, error};
    row.fileCount = 1;
    row.files[0] = set;
    row.splitter = splitter;
    return row;
}

constexpr Instruction move(Word word, const char *name, Standing standing, int points,
                           const char *syntax, const char *error)
{
    Instruction row{word, name, Kind::Move, standing, syntax, error};
    row.splitter = Instruction::Splitter::Expressions;
    row.points = points;
    row.mayWeave = standing != Standing::Host;
    return row;
}

constexpr Instruction timed(Word word, const char *name, const char *syntax, const char *error,
                            double shortest, const char *timeError, const char *label)
{
    Instruction row{word, name, Kind::Timed, Standing::Registered, syntax, error};
    row.shortest = shortest;
    row.timeError = timeError;
    row.timeLabel = label;
    return row;
}

constexpr Instruction bare(Word word, const char *name, Standing standing, const char *error)
{
    return {word, name, Kind::Bare, standing, name, error};
}

using Splitter = Instruction::Splitter;

} // namespace

// NOLINTNEXTLINE(readability-redundant-declaration): gives the constants external linkage
extern const Instruction instructions[wordCount];
constexpr Instruction instructions[wordCount] = {
    arc(Word::ArcOn, "ArcOn", R"(ArcOn "arcondata", "arcdata")",
        QT_TRANSLATE_NOOP("ProgramLine", "arcon tl command format error"), arconFiles, arcFiles),
    arc(Word::ArcOff, "ArcOff", R"(ArcOff "arcoffdata")",
        QT_TRANSLATE_NOOP("ProgramLine", "arcoff tl command format error"), arcoffFiles),
    move(Word::WMoveL, "WMoveL", Standing::Registered, 1,
         R"(WMoveL ToPoint, Speed, Zone, Tool, [Wobj], ["weavedata"])",
         QT_TRANSLATE_NOOP("ProgramLine", "wmovel tl command format error")),
    move(Word::WMoveC, "WMoveC", Standing::Registered, 2,
         R"(WMoveC AuxPoint, ToPoint, Speed, Zone, Tool, [Wobj], ["weavedata"])",
         QT_TRANSLATE_NOOP("ProgramLine", "wmovec tl command format error")),
    file(Word::WeaveOn, "WeaveOn", Standing::Registered, R"(WeaveOn "weavedata")",
         QT_TRANSLATE_NOOP("ProgramLine", "weaveon tl command format error"), weaveFiles,
         Splitter::Blanks),
    bare(Word::WeaveOff, "WeaveOff", Standing::Registered,
         QT_TRANSLATE_NOOP("ProgramLine", "weaveoff tl command format error")),
    timed(Word::FeedOnWire, "FeedOnWire", "FeedOnWire t",
          QT_TRANSLATE_NOOP("ProgramLine", "feedonwire tl command format error"), 0.1,
          QT_TRANSLATE_NOOP("ProgramLine", "feedonwire time format error"),
          QT_TRANSLATE_NOOP("ProgramLine", "Feed Wire Time(s): ")),
    timed(Word::FeedBackWire, "FeedBackWire", "FeedBackWire t",
          QT_TRANSLATE_NOOP("ProgramLine", "feedbackwire tl command format error"),
          0, // programs in the field have times below a tenth
          QT_TRANSLATE_NOOP("ProgramLine", "feedbackwire time format error"),
          QT_TRANSLATE_NOOP("ProgramLine", "Back Wire Time(s): ")),
    timed(Word::DetectGas, "DetectGas", "DetectGas t",
          QT_TRANSLATE_NOOP("ProgramLine", "detectgas tl command format error"), 0.1,
          QT_TRANSLATE_NOOP("ProgramLine", "detectgas time format error"),
          QT_TRANSLATE_NOOP("ProgramLine", "Detect Gas Time(s): ")),
    file(Word::SegOn, "SegOn", Standing::Unregistered, R"(SegOn "segdata")",
         QT_TRANSLATE_NOOP("ProgramLine", "segon tl command format error"), segFiles,
         Splitter::Expressions),
    bare(Word::SegOff, "SegOff", Standing::Unregistered,
         QT_TRANSLATE_NOOP("ProgramLine", "segoff tl command format error")),
    move(Word::MoveJ, "MoveJ", Standing::Host, 1, "MoveJ ToPoint, Speed, Zone, Tool, [Wobj]",
         QT_TRANSLATE_NOOP("ProgramLine", "movej format error")),
    move(Word::MoveL, "MoveL", Standing::Host, 1, "MoveL ToPoint, Speed, Zone, Tool, [Wobj]",
         QT_TRANSLATE_NOOP("ProgramLine", "movel format error")),
    move(Word::MoveC, "MoveC", Standing::Host, 2,
         "MoveC AuxPoint, ToPoint, Speed, Zone, Tool, [Wobj]",
         QT_TRANSLATE_NOOP("ProgramLine", "movec format error")),
};

namespace {

constexpr bool standInOrder()
{
    for (int i = 0; i < wordCount; ++i) {
        if (int(instructions[i].word) != i || !instructions[i].name)
            return false;
    }
    return true;
}
static_assert(standInOrder(), "each word has its row, in the order of the words");

// In letters; a shorter word with another letter would be another word.
constexpr int shortestMisspelt = 5;

// Whether the words differ by one letter: one too many, missing, or different.
bool isOneOff(QStringView shorter, QStringView longer)
{
    if (shorter.size() > longer.size())
        return isOneOff(longer, shorter);
    const auto differ = std::mismatch(shorter.begin(), shorter.end(), longer.begin(), longer.end());
    const auto at = int(differ.first - shorter.begin());
    return longer.size() - shorter.size() <= 1
        && shorter.mid(at + (longer.size() == shorter.size())) == longer.mid(at + 1);
}

} // namespace

const Instruction &row(Word word)
{
    return instructions[int(word)];
}

const Instruction *findInstruction(const QString &word)
{
    const auto found =
        std::find_if(std::begin(instructions), std::end(instructions),
                     [&word](const Instruction &r) { return word == QLatin1String(r.name); });
    return found == std::end(instructions) ? nullptr : found;
}

const Instruction *meantBy(const QString &word)
{
    const QString lower = word.toLower();
    const auto find = [](const auto &isMeant) {
        const auto found = std::find_if(std::begin(instructions), std::end(instructions), isMeant);
        return found == std::end(instructions) ? nullptr : found;
    };
    const auto *same = find([&](const Instruction &r) { return r.text().toLower() == lower; });
    if (same || lower.size() < shortestMisspelt)
        return same;
    return find([&](const Instruction &r) { // the host has moves of other names, too
        return r.standing != Standing::Host && isOneOff(lower, r.text().toLower());
    });
}

const QStringList &fileNames(const FileSet &set)
{
    static const auto all = [] {
        std::map<QStringList (*)(), QStringList> names;
        for (const FileSet &each : {arconFiles, arcFiles, arcoffFiles, weaveFiles, segFiles})
            names.emplace(each.names, each.names());
        return names;
    }();
    return all.at(set.names);
}

QStringList fileNames(Word word, int argument)
{
    const Instruction &instruction = row(word);
    return argument < instruction.fileCount ? fileNames(instruction.files[argument])
                                            : QStringList();
}

const QStringList &weaveFileNames()
{
    static const QStringList &names = fileNames(weaveFiles);
    return names;
}

} // namespace welmo::tl
