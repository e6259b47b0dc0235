#pragma once

#include <QString>
#include <QVector>

namespace welmo::tl {

/// A piece of a line and where it stands.
struct Token
{
    QString text;
    int column = 0; ///< of its first character, counted from 1

    int end() const { return column + text.size(); } ///< the column after its last character
};
using Tokens = QVector<Token>;

// Each looks at the characters from @p from up to, and without, @p to; columns are the line's.

/// As CharacterCheck::splitTlCommand().
Tokens splitArguments(const QString &line, int from, int to);
/// As CharacterCheck::splitMoveTlCommand().
Tokens splitMoveArguments(const QString &line, int from, int to);

/// The end of the call, such as "Offs(p1,1,2,3)", whose name ends at @p nameEnd: the place after
/// its first closing parenthesis. -1 when no call with something in its parentheses stands there.
int callEnd(const QString &line, int nameEnd, int to);
/// A letter or digit of ASCII, or the underscore: what words are made of.
bool isWordCharacter(QChar character);

} // namespace welmo::tl
