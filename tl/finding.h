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
        Unpaired, ///< an On without its Off, or the other way round
        Doubtful, ///< it can be carried out, but hardly as it was meant
    };

    int line = 0; ///< counted from 0
    int column = 0; ///< in characters, counted from 1
    Kind kind = Kind::Refused;
    const char *message = nullptr; ///< what the property form would say; null if it is silent
    const char *detail = nullptr; ///< more about it, with %1 and so on for @p names; may be null
    QStringList names;

    /// One line: translated where a translator is installed, English otherwise.
    QString text() const;
    /// "refused", "unknown", "misread", "unpaired" or "doubtful".
    QString kindName() const;
};
using Findings = QVector<Finding>;

} // namespace welmo::tl
