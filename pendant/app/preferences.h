#pragma once

#include <QString>

namespace welmo::pendant {

/// The operator's choices on the pendant, kept in the data folder.
class Preferences
{
public:
    /// Reads the file; one that does not parse gives the defaults and a line in error().
    explicit Preferences(const QString &dataFolder);

    QString language = QStringLiteral("en");
    QString theme = QStringLiteral("light");
    int jogPercent = 30; ///< of the robot's full speed by hand

    QString error() const { return m_error; }
    /// False if the file could not be written. A file that did not parse is not overwritten.
    bool save();

private:
    QString m_path;
    QString m_error;
};

} // namespace welmo::pendant
