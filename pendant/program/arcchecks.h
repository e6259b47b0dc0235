#pragma once

#include <QString>
#include <QVector>

class XService;

namespace welmo::pendant {

class Cell;
class ProgramDocument;

/// One precondition of an arc.
struct ArcCheck
{
    enum class Verdict { Unknown, Good, Bad };

    QString id; ///< names the row's widgets
    QString text; ///< what is checked
    QString value; ///< its present value
    Verdict verdict;
    QString page; ///< the page where it can be corrected
};

/// The page that is not one of the pendant's own.
inline const QString packagePage = QStringLiteral("package");

/// All preconditions of an arc by controller and program, in their present state. Waits for the
/// controller's answers.
QVector<ArcCheck> arcChecks(const ProgramDocument &program, const Cell &cell, XService *service);

} // namespace welmo::pendant
