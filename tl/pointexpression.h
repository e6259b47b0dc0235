#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::tl {

/// A point argument taken apart: the function's name, the point's name, then the numbers, as they
/// are written but without the white space around them. A text without a function comes as
/// "default" and the whole text.
QStringList splitPoint(const QString &text);

/// A point argument of a move: a point as it is, with an offset, or relative to the tool.
struct PointExpression
{
    enum class Kind { Plain, Offs, RelTool };
    /// The two ways in which programs spell a relative tool; both are read as one.
    enum class Spelling {
        Insert, ///< "RelTool(p1,0,0,10,0,0,0)"
        Property, ///< "Reltool(p1,0,0,10,0,0,0)"
    };

    Kind kind = Kind::Plain;
    QString name; ///< of the point
    /// x, y, z in millimetres, for RelTool followed by rx, ry, rz in degrees; empty for Plain.
    QVector<double> numbers;

    /// How many numbers a kind has: 0, 3, 6.
    static int numberCount(Kind kind);
    /// What splitPoint() gave. An unknown function reads as the plain point that it names; a number
    /// that is missing or unreadable reads as 0, and numbers beyond the last are ignored.
    static PointExpression fromParts(const QStringList &parts);
    /// Reads any text in the same way.
    static PointExpression parse(const QString &text);
    /// The argument, without blanks. Numbers that are missing are written as 0, numbers beyond the
    /// last are not written; the name is made safe, see nameText().
    QString format(Spelling spelling) const;
};

bool operator==(const PointExpression &a, const PointExpression &b);

/// A point argument as it was read.
struct PointReading
{
    PointExpression point;
    PointExpression::Spelling spelling = PointExpression::Spelling::Property;
    /// The text says nothing that was not taken over: no unknown function, and exactly the numbers
    /// that the function has.
    bool isAsWritten = false;

    /// The same expression in its normal form, spelled as it was; nothing (a null string) when
    /// writing it again would change it, as with a number of more than 6 digits.
    QString normalForm() const;
};

PointReading readPoint(const QString &text);

} // namespace welmo::tl
