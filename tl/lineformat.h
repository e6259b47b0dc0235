#pragma once

#include "tl/instruction.h"

namespace welmo::tl {

// What the instructions' forms write. Names are made safe, see nameText().

/// "ArcOn "arcondata1","arcdata1"".
QString formatFileLine(Word word, const QStringList &files);

/// "FeedOnWire 1.5", see numberText().
QString formatTimedLine(Word word, double seconds);

/// The arguments of a move after the points.
struct MoveParameters
{
    QString speed;
    QString zone;
    QString tool;
    QString wobj;
    QString weave = {}; ///< the weave file; empty or noWeave for none

    /// "v10,fine,tool0,wobj0" or "v10,fine,tool0,wobj0,"weavedata1"".
    QString format() const;
};

/// The whole line. @p points are formatted point expressions, the auxiliary point first; @p
/// parameters is the result of MoveParameters::format().
QString formatMoveLine(Word word, const QStringList &points, const QString &parameters);

} // namespace welmo::tl
