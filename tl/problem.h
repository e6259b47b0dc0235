#pragma once

#include <QString>
#include <QVector>

namespace welmo::tl {

/// One complaint about a line.
struct Problem
{
    const char *message; ///< source text, see shown()
    int column; ///< of what it is about, counted from 1
};
using Problems = QVector<Problem>;

/// A message's text: translated where a translator is installed, English otherwise.
QString shown(const char *message);

/// What is said about the arguments of a line. What is said about a whole line stands in the table
/// of the instructions, see commandError().
namespace messages {

extern const char *const arconData;
extern const char *const arcData;
extern const char *const arcoffData;
extern const char *const weaveData;
extern const char *const segData;
extern const char *const speed;
extern const char *const zone;
extern const char *const tool;
extern const char *const wobj;
extern const char *const point; ///< readable, but as something else than what is written

} // namespace messages

} // namespace welmo::tl
