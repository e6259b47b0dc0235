#pragma once

#include <QString>

namespace welmo::pendant {

class ProgramCheck;

/// What a form wrote, read back before it goes into the program.
struct WrittenLine
{
    QString refusal; ///< why it does not say what was chosen; empty when it does
    /// What is doubtful about the tool and the work object that it names; empty for nothing.
    QString doubt;
    QString asTaught; ///< the line with those of the point, where there is a doubt
};

WrittenLine readBack(const QString &written, ProgramCheck *check);

} // namespace welmo::pendant
