#pragma once

#include <QString>
#include <QStringList>

/// Takes a program line apart. Nothing fails here: malformed text only yields other tokens, and
/// whoever asked decides whether they make an instruction.
class CharacterCheck
{
public:
    /// The text between the first pair of double quotes, possibly empty; null without a pair.
    static QString checkQuotationMarks(const QString &text);

    /// The line cut at blanks and commas; a run of them is one cut. Quotes stay on their tokens.
    static QStringList splitTlCommand(const QString &line);

    /// Words, quoted names (with their quotes) and expressions such as "Offs(p1, 10, 0, 0)", which
    /// end at the first closing parenthesis. All else is dropped. A word consists of ASCII letters,
    /// digits and underscores.
    static QStringList splitMoveTlCommand(const QString &line);
};
