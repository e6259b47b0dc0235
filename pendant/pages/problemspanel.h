#pragma once

#include "pendant/pages/hostpage.h"

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

/// The newest few problems that the host reported; hidden while there are none.
class ProblemsPanel : public Card
{
    Q_OBJECT
public:
    explicit ProblemsPanel(tessa::MessageLog *log, QWidget *parent = nullptr);

    /// True while there are problems to show.
    bool any() const;

signals:
    void anyChanged(bool any);

private:
    void refresh();

    tessa::MessageLog *m_log;
    QLabel *m_lines;
};

} // namespace welmo::pendant
