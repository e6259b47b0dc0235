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

/// As CharacterCheck::splitTlCommand().
Tokens splitArguments(const QString &line);

/// As CharacterCheck::splitMoveTlCommand().
Tokens splitMoveArguments(const QString &line);

/// The column where the line's text starts, after white space; 1 for a line without any.
int textColumn(const QString &line);

} // namespace welmo::tl
