#pragma once

#include <QStringList>
#include <optional>

#include "tl/instruction.h"

namespace welmo::tl {

/// A move's arguments as they stand in the line, by their places: none when the line was refused.
struct MoveLine
{
    std::optional<Token> aux; ///< WMoveC only; for PointExpression::parse(), like the target
    std::optional<Token> target;
    std::optional<Token> speed;
    std::optional<Token> zone;
    std::optional<Token> tool;
    std::optional<Token> wobj; ///< may be missing
    std::optional<Token> weave; ///< may be missing; with its quotes
    int tokenCount = 0; ///< the first word included
    Problems problems; ///< about the line as a whole; whether a name exists is for others to say
};

/// Reads a line of WMoveL or WMoveC; its first word is not looked at. An argument is what its place
/// makes it: a weave file where the work object belongs is taken for the work object.
MoveLine parseMoveLine(Instruction instruction, const QString &line);

/// The weave combo's entry for "no weave".
inline const QString noWeave = QStringLiteral("NULL");

/// The arguments after the points.
struct MoveParameters
{
    QString speed;
    QString zone;
    QString tool;
    QString wobj;
    QString weave = noWeave; ///< the weave file; empty or noWeave for none

    /// "v10,fine,tool0,wobj0" or "v10,fine,tool0,wobj0,"weavedata1"". Names are made safe.
    QString format() const;
};

/// The whole line. @p points are formatted point expressions (the auxiliary point first), and
/// @p parameters is what MoveParameters::format() gave.
QString formatMoveLine(Instruction instruction, const QStringList &points,
                       const QString &parameters);

} // namespace welmo::tl
