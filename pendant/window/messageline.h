#pragma once

#include <QFrame>

class QLabel;

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

/// The newest message in one line, or an error that was not looked at yet: the level as picture and
/// colour, a long text shortened.
class MessageLine : public QFrame
{
    Q_OBJECT
public:
    explicit MessageLine(tessa::MessageLog *log, QWidget *parent = nullptr);

    /// The whole message.
    QString text() const { return m_full; }

signals:
    void touched();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void refresh();
    void show(const QString &level, const QString &text);
    void elide();

    tessa::MessageLog *m_log;
    QString m_full;
    QLabel *m_picture;
    QLabel *m_text;
};

} // namespace welmo::pendant
