#pragma once

#include <QLabel>

namespace welmo {

/// The status bar's picture of the weld running mode.
class WeldModeIndicator : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

    /// Shows the picture for @p code ("test_run", "simu", "real"); any other code changes nothing.
    void showPicture(const QString &code);
    /// As showPicture(), and reports the switch in the message log.
    void announce(const QString &code);
};

} // namespace welmo
