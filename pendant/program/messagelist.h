#pragma once

#include <QListView>

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

/// The message log in a narrow column, newest first.
class MessageList : public QListView
{
    Q_OBJECT
public:
    explicit MessageList(tessa::MessageLog *log, QWidget *parent = nullptr);
};

} // namespace welmo::pendant
