#pragma once

#include <QString>
#include <QVector>

namespace welmo::tl {

/// A piece of a line and its place.
struct Token
{
    QString text;
    int column = 0; ///< of its first character, counted from 1

    int end() const { return column + text.size(); } ///< the column after its last character
};
using Tokens = QVector<Token>;

// These scan the characters from @p from up to, but not including, @p to; columns count in the
// line.

/// As CharacterCheck::splitTlCommand().
Tokens splitArguments(const QString &line, int from, int to);
/// As CharacterCheck::splitMoveTlCommand().
Tokens splitMoveArguments(const QString &line, int from, int to);

/// The end of a call such as "Offs(p1,1,2,3)" whose name ends at @p nameEnd: the place after its
/// first closing parenthesis. -1 if there is no call with something in its parentheses.
int callEnd(const QString &line, int nameEnd, int to);
/// A letter or digit of ASCII, or the underscore; words consist of them.
bool isWordCharacter(QChar character);

} // namespace welmo::tl
