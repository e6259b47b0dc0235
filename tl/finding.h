#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::tl {

/// One thing that is wrong in a program.
struct Finding
{
    enum class Kind {
        Refused, ///< the instruction's property form refuses the line
        Unknown, ///< the project has nothing of this name
        Misread, ///< reading takes over something else than what is written
        Unpaired, ///< an On without its Off, or an Off without its On
        Doubtful, ///< can be carried out, but is probably not what was meant
    };

    int line = 0; ///< counted from 0
    int column = 0; ///< in characters, counted from 1
    Kind kind = Kind::Refused;
    /// What the property form would report; null if it reports nothing.
    const char *message = nullptr;
    const char *detail = nullptr; ///< more about it, with %1 and so on for @p names; may be null
    QStringList names;

    /// One line: translated if a translator is installed, else English.
    QString text() const;
    /// "refused", "unknown", "misread", "unpaired" or "doubtful".
    QString kindName() const;
};
using Findings = QVector<Finding>;

} // namespace welmo::tl
