#pragma once

#include <QString>

namespace welmo::tlcheck {

/// A progress bar on the standard error stream; does nothing if that is no terminal.
class ProgressBar
{
public:
    ProgressBar(QString title, int total);
    /// Removes the bar.
    ~ProgressBar();
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;

    void show(int done);

private:
    QString m_title;
    int m_total;
    int m_shownPercent = -1;
    bool m_isTerminal;
};

} // namespace welmo::tlcheck
