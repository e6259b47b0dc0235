#pragma once

#include <QString>
#include <QVariantMap>

class XService;

namespace welmo::schema {
class FileSet;
}

namespace welmo::pendant {

/// The set that a parameter file's name belongs to; null for any other name.
const schema::FileSet *setOfFile(const QString &file);

/// What the controller has in a parameter file, as far as a weld depends on it.
struct FileFacts
{
    bool isKnown = false; ///< false if the controller did not answer
    bool exists = false;
    /// With their units; empty if this kind of file has none.
    QString current, voltage, speed;
    QString annotation; ///< the user's own note
    QString remark; ///< what may surprise, but is allowed
    /// Why it cannot be welded with, in words; empty if it can.
    QString finding;

    /// All of it in one line.
    QString summary() const;
};

/// Reads the file and compares its current with the machine's @p ratedCurrent in A.
FileFacts factsOf(const QString &file, double ratedCurrent, XService *service);
/// The rated current in the node of the welder's setting, in A.
double ratedCurrentIn(const QVariantMap &welderSetting);

} // namespace welmo::pendant
