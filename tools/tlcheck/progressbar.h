#pragma once

#include <QString>

namespace welmo::tlcheck {

/// A bar on the terminal behind the standard error stream; nothing where that is no terminal.
class ProgressBar
{
public:
    ProgressBar(QString title, int total);
    /// Wipes the bar away.
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
