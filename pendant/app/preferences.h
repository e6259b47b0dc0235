#pragma once

#include <QString>

namespace welmo::pendant {

/// What the operator chose on the pendant itself, kept in the data folder.
class Preferences
{
public:
    /// Reads what is kept; a file that does not parse leaves the defaults and a line in error().
    explicit Preferences(const QString &dataFolder);

    QString language = QStringLiteral("en");
    QString theme = QStringLiteral("light");
    int jogPercent = 30; ///< of the robot's full speed by hand

    QString error() const { return m_error; }
    /// False when it could not be kept. A file that did not parse is left as it is.
    bool save();

private:
    QString m_path;
    QString m_error;
};

} // namespace welmo::pendant
