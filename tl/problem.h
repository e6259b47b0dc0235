#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::tl {

/// One thing that is wrong with a line.
struct Problem
{
    enum class Kind {
        Refused, ///< the instruction's property form refuses the line or one of its arguments
        Misread, ///< reading takes over something else than what is written
    };

    const char *message = nullptr; ///< source text of what the property form reports, see shown()
    int column = 0; ///< where the wrong part starts, counted from 1
    const char *detail = nullptr; ///< more about it, with %1 and so on for @p names; may be null
    QStringList names;
    Kind kind = Kind::Refused;

    /// Message and detail in English, whatever translator is installed.
    QString english() const;
};
using Problems = QVector<Problem>;

/// A message's text: translated if a translator is installed, else English.
QString shown(const char *message);

/// Messages on the arguments of a line; those that depend on the instruction are in its row of the
/// table of instructions.
namespace messages {

constexpr auto arconData = QT_TRANSLATE_NOOP("ProgramLine", "arcondata format error");
constexpr auto arcData = QT_TRANSLATE_NOOP("ProgramLine", "arcdata format error");
constexpr auto arcoffData = QT_TRANSLATE_NOOP("ProgramLine", "arcoffdata format error");
constexpr auto weaveData = QT_TRANSLATE_NOOP("ProgramLine", "weavedata format error");
constexpr auto segData = QT_TRANSLATE_NOOP("ProgramLine", "segdata format error");
constexpr auto speed = QT_TRANSLATE_NOOP("ProgramLine", "speed format error");
constexpr auto zone = QT_TRANSLATE_NOOP("ProgramLine", "zone format error");
constexpr auto tool = QT_TRANSLATE_NOOP("ProgramLine", "tool format error");
constexpr auto wobj = QT_TRANSLATE_NOOP("ProgramLine", "wobj format error");
/// The text can be read, but not as it is written.
constexpr auto point = QT_TRANSLATE_NOOP("ProgramLine", "point format error");

} // namespace messages

} // namespace welmo::tl
