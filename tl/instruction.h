#pragma once

#include <QString>

#include "tl/problem.h"

namespace welmo::tl {

/// The words of the language: the package's own, and the host's moves.
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
    MoveC, // must stay the last one, see wordCount
};
constexpr int wordCount = int(Word::MoveC) + 1;

/// The kind of arguments that follow a word.
enum class Kind {
    Files, ///< names of parameter files in quotes
    Move, ///< points, speed, zone, tool, and optional arguments
    Timed, ///< a time in seconds
    Bare, ///< no arguments
};

/// Who defines the instruction, and whether it is carried out.
enum class Standing {
    Registered, ///< the package's, in the program editor's menu
    Unregistered, ///< the package's, with forms, but neither offered nor carried out
    Host, ///< the host's: the package has no form for it
};

/// A set of numbered parameter files as lines name them.
struct FileSet
{
    QStringList (*names)(); ///< all possible names
    const char *error; ///< source text, for an argument that is no file of the set
};

/// The declaration of an instruction. Members for other kinds stay empty.
struct Instruction
{
    /// The text operation that splits the arguments.
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

/// One row for each word, in the words' order.
extern const Instruction instructions[wordCount];

/// The row of a word.
const Instruction &row(Word word);
/// The row of this word, with the same case; null for an unknown word.
const Instruction *findInstruction(const QString &word);
/// The instruction that an unknown word probably means: the same word in another case or, for the
/// package's own, with one letter different; null if there is none.
const Instruction *meantBy(const QString &word);

/// The names of the set's 40 files.
const QStringList &fileNames(const FileSet &set);
/// The possible names of the argument @p argument, counted from 0; none past the last one.
QStringList fileNames(Word word, int argument);
/// The names of the 40 weave files, which moves can name as well.
const QStringList &weaveFileNames();

} // namespace welmo::tl
