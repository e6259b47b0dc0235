#pragma once

#include <QString>

#include "tl/problem.h"

namespace welmo::tl {

/// The words that the language knows: the package's own, and the host's moves.
enum class Word {
    ArcOn,
    ArcOff,
    WMoveL,
    WMoveC,
    WeaveOn,
    WeaveOff,
    FeedOnWire,
    FeedBackWire,
    DetectGas,
    SegOn,
    SegOff,
    MoveJ,
    MoveL,
    MoveC, // stays the last one, see wordCount
};
constexpr int wordCount = int(Word::MoveC) + 1;

/// What follows a word.
enum class Kind {
    Files, ///< names of parameter files in quotes
    Move, ///< points, speed, zone, tool and what may follow
    Timed, ///< a time in seconds
    Bare, ///< nothing
};

/// Whose instruction it is, and who carries it out.
enum class Standing {
    Registered, ///< the package's, in the program editor's menu
    Unregistered, ///< the package's, with forms, but neither offered nor carried out
    Host, ///< the host's: the package has no form for it
};

/// A set of numbered parameter files as lines name them.
struct FileSet
{
    QStringList (*names)(); ///< all that there can be
    const char *error; ///< source text, when an argument is no file of the set
};

/// All that is declared of an instruction. What belongs to another kind stays empty.
struct Instruction
{
    /// Which text operation takes the arguments apart.
    enum class Splitter { Blanks, Expressions };

    Word word{};
    const char *name = nullptr;
    Kind kind{};
    Standing standing{};
    const char *syntax = nullptr; ///< as the program editor shows it
    const char *commandError = nullptr; ///< source text, for a wrong number of arguments

    int fileCount = 0;
    FileSet files[2] = {};
    Splitter splitter = Splitter::Blanks;
    Qt::CaseSensitivity caseOfFiles = Qt::CaseSensitive;

    int points = 0; ///< auxiliary points included
    bool mayWeave = false; ///< a weave file may follow the work object

    double shortest = 0; ///< seconds
    const char *timeError = nullptr; ///< source text
    const char *timeLabel = nullptr; ///< source text, translated like the messages

    QString text() const { return QString::fromLatin1(name); }
};

/// One row for each word, in the order of the words.
extern const Instruction instructions[wordCount];

/// The word's row.
const Instruction &row(Word word);
/// The row of that word; null for a word of somebody else. Upper and lower case are different
/// words.
const Instruction *findInstruction(const QString &word);
/// The instruction that somebody may have meant by a word that is none: the same but for the case
/// of the letters or, among the package's, one letter; null when there is none.
const Instruction *meantBy(const QString &word);

/// The names of the set's 40 files.
const QStringList &fileNames(const FileSet &set);
/// The names that the argument @p argument, counted from 0, can have; none beyond the last.
QStringList fileNames(Word word, int argument);
/// The names of the 40 weave files, which moves can name as well.
const QStringList &weaveFileNames();

} // namespace welmo::tl
