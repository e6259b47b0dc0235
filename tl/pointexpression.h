#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::tl {

/// A point argument taken apart: the function's name, the point's name, then the numbers, as they
/// are written but without white space around them. A text without a function gives "default" and
/// the whole text.
QStringList splitPoint(const QString &text);

/// A point argument of a move: a point as it is, with an offset, or relative to the tool.
struct PointExpression
{
    enum class Kind { Plain, Offs, RelTool };
    /// The two spellings of RelTool in programs; both are parsed alike.
    enum class Spelling {
        Insert, ///< "RelTool(p1,0,0,10,0,0,0)"
        Property, ///< "Reltool(p1,0,0,10,0,0,0)"
    };

    Kind kind = Kind::Plain;
    QString name; ///< the point's name
    /// x, y, z in millimetres, for RelTool followed by rx, ry, rz in degrees; empty for Plain.
    QVector<double> numbers;

    /// How many numbers a kind has: 0, 3 or 6.
    static int numberCount(Kind kind);
    /// From the result of splitPoint(). An unknown function is read as the plain point that it
    /// names; a number that is missing or unreadable is read as 0, and surplus numbers are ignored.
    static PointExpression fromParts(const QStringList &parts);
    /// Parses any text in the same way.
    static PointExpression parse(const QString &text);
    /// The argument, without blanks. Missing numbers are written as 0, surplus ones are not
    /// written; the name is made safe, see nameText().
    QString format(Spelling spelling) const;
};

bool operator==(const PointExpression &a, const PointExpression &b);

/// The result of reading a point argument.
struct PointReading
{
    PointExpression point;
    PointExpression::Spelling spelling = PointExpression::Spelling::Property;
    /// Whether everything in the text was taken over: no unknown function, and exactly the
    /// function's number of numbers.
    bool isAsWritten = false;

    /// The expression in its normal form, in its own spelling; a null string if writing it again
    /// would change it, as with a number of more than 6 digits.
    QString normalForm() const;
};

PointReading readPoint(const QString &text);

} // namespace welmo::tl
