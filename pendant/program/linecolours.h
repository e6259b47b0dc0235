#pragma once

#include <QString>
#include <QVector>

namespace welmo::pendant {

/// A piece of a program line in one colour.
struct ColouredPart
{
    QString text;
    const char *color; ///< a key of the theme
};

/// The text of a line, split into instruction word, arguments, quoted names and comment. Words of
/// the packages' instructions have a colour of their own.
QVector<ColouredPart> colouredParts(const QString &text);

} // namespace welmo::pendant
