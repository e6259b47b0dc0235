#pragma once

#include "pendant/pages/hostpage.h"

class QHBoxLayout;
class QTableView;

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

class MessageModel;

/// The message log: newest first, one level or all, and the chosen message in full below.
class MessagesPage : public HostPage
{
    Q_OBJECT
public:
    explicit MessagesPage(tessa::MessageLog *log, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void onUnseen();
    QLayout *makeBar(tessa::MessageLog *log);
    void addFilter(QHBoxLayout *bar, const QString &level, const QString &text);
    QTableView *makeTable();
    void showDetail();

    tessa::MessageLog *m_log;
    MessageModel *m_model;
    QTableView *m_table;
    QLabel *m_detail;
};

} // namespace welmo::pendant
