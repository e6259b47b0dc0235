#pragma once

#include <QString>
#include <QVector>

class XService;

namespace welmo::pendant {

class Cell;
class ProgramDocument;

/// One thing that an arc needs.
struct ArcCheck
{
    enum class Verdict { Unknown, Good, Bad };

    QString id; ///< for the row's widgets
    QString text; ///< what is looked at
    QString value; ///< how it is
    Verdict verdict;
    QString page; ///< where it can be put right
};

/// Where a row leads besides the pendant's own pages.
inline const QString packagePage = QStringLiteral("package");

/// Everything that an arc needs, as the controller and the program say it now. Waits for the
/// controller's answers.
QVector<ArcCheck> arcChecks(const ProgramDocument &program, const Cell &cell, XService *service);

} // namespace welmo::pendant
