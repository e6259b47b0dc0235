#include "tools/tlcheck/progressbar.h"

#include <cstdio>
#include <unistd.h>

namespace welmo::tlcheck {

namespace {

constexpr int width = 30; // characters

} // namespace

ProgressBar::ProgressBar(QString title, int total)
    : m_title(std::move(title))
    , m_total(qMax(1, total))
    , m_isTerminal(isatty(STDERR_FILENO) == 1)
{
    show(0);
}

ProgressBar::~ProgressBar()
{
    if (m_isTerminal)
        std::fputs("\r\033[K", stderr);
}

void ProgressBar::show(int done)
{
    const int percent = int(qint64(qMin(done, m_total)) * 100 / m_total);
    if (!m_isTerminal || percent == m_shownPercent)
        return;
    m_shownPercent = percent;
    const QByteArray bar = QByteArray(percent * width / 100, '#').leftJustified(width, '.');
    std::fprintf(stderr, "\r[%s] %3d %% %s", bar.constData(), percent, qPrintable(m_title));
    std::fflush(stderr);
}

} // namespace welmo::tlcheck
