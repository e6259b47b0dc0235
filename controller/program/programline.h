#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <vector>

#include "controller/core/request.h"

namespace welmo::controller {

/// A line of a program that asks for something: a word, and arguments between commas. A quoted
/// argument keeps its quotes; a call such as "Offs(p1,0,0,5)" is one argument.
struct ProgramLine
{
    int number; ///< in the file, from 1
    QString word;
    QStringList arguments;
};

/// The lines of @p text that are neither empty nor a comment. A comment starts with "//", or with
/// "#" or "!" at the start of the line; a semicolon at the end says nothing.
std::vector<ProgramLine> readProgram(const QString &text);

bool isQuoted(const QString &argument);
/// The text between the quotes; the argument itself when it has none.
QString unquoted(const QString &argument);

/// A point as a move names it: as it is, with an offset along the axes of the work object, or
/// relative to the tool at the point.
struct PointTerm
{
    enum class Kind { Plain, Offs, RelTool };

    Kind kind = Kind::Plain;
    QString name;
    std::array<double, 6> numbers{}; ///< x, y, z in mm; a, b, c in degrees

    /// Reads "p1", "Offs(p1,x,y,z)" and "RelTool(p1,x,y,z,a,b,c)", which some write "Reltool";
    /// numbers left out are 0.
    static Reply read(const QString &argument, PointTerm *term);
};

} // namespace welmo::controller
