#pragma once

#include <QString>
#include <QStringList>

/// Takes a program line apart. It never fails: malformed text only yields other tokens, and the
/// caller decides whether they make an instruction.
class CharacterCheck
{
public:
    /// The text between the first pair of double quotes, possibly empty; null without a pair.
    static QString checkQuotationMarks(const QString &text);

    /// The line split at blanks and commas; several of them in a row split once. Quotes stay on
    /// their tokens.
    static QStringList splitTlCommand(const QString &line);

    /// Words, quoted names (with their quotes) and expressions such as "Offs(p1, 10, 0, 0)", which
    /// end at the first closing parenthesis. Everything else is dropped. A word consists of ASCII
    /// letters, digits and underscores.
    static QStringList splitMoveTlCommand(const QString &line);
};
