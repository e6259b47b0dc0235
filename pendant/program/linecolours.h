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

/// The line cut into instruction word, arguments, quoted names and comment. The words of the
/// instructions that packages brought stand out from all others.
QVector<ColouredPart> colouredParts(const QString &line);

} // namespace welmo::pendant
