#pragma once

#include <QLabel>

namespace welmo {

/// The status bar's picture of the weld running mode.
class WeldModeIndicator : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

    /// Shows the picture of @p code ("test_run", "simu", "real"); any other code changes nothing.
    void showPicture(const QString &code);
    /// As showPicture(), and tells the switch in the message log, as the controller's news.
    void announce(const QString &code);
};

} // namespace welmo
