#pragma once

#include <QJsonArray>
#include <QString>

#include "tl/finding.h"

namespace welmo::tlcheck {

/// What a run prints: findings on the standard output, the rest on the standard error stream; with
/// @p json all of it as one object at the end.
class Report
{
public:
    explicit Report(bool json)
        : m_json(json)
    { }

    void add(const QString &file, const tl::Findings &findings);
    void addRewritten(const QString &file, int lines);
    /// A file that could not be read or written.
    void addError(const QString &file, const QString &reason);

    /// Prints what is left and returns the exit status: 0, 1 with findings, 2 with errors.
    int finish();

private:
    bool m_json;
    QJsonArray m_findings;
    QJsonArray m_rewritten;
    QJsonArray m_errors;
};

} // namespace welmo::tlcheck
