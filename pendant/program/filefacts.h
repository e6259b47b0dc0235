#pragma once

#include <QString>
#include <QVariantMap>

class XService;

namespace welmo::schema {
class FileSet;
}

namespace welmo::pendant {

/// The set of the parameter file of that name; null for a name that none can have.
const schema::FileSet *setOfFile(const QString &file);

/// What the controller holds in a parameter file, as far as a weld depends on it.
struct FileFacts
{
    bool isKnown = false; ///< false when the controller could not be asked
    bool exists = false;
    /// With their units; empty where the kind of file has none.
    QString current, voltage, speed;
    QString annotation; ///< the user's own words about it
    /// Why no weld comes of it, in words; empty when nothing is wrong with it.
    QString finding;

    /// All of it in a line.
    QString summary() const;
};

/// Reads the file; its current is held to the machine's, @p ratedCurrent in A.
FileFacts factsOf(const QString &file, double ratedCurrent, XService *service);
/// The rated current in a value of the node of the welder's setting, in A.
double ratedCurrentIn(const QVariantMap &welderSetting);

} // namespace welmo::pendant
