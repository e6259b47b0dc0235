#pragma once

#include <QFrame>

class QLabel;

namespace tessa {
class MessageLog;
}

namespace welmo::pendant {

/// The newest message in one line, its level as picture and colour, a long text shortened. An error
/// that was not looked at yet stands above it until it is.
class MessageLine : public QFrame
{
    Q_OBJECT
public:
    explicit MessageLine(tessa::MessageLog *log, QWidget *parent = nullptr);

    /// The whole message of the first row.
    QString text() const { return m_first.full; }
    /// What came after the error in the first row; empty if there is none, or nothing came.
    QString later() const { return m_second.full; }

signals:
    void touched();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Row
    {
        QLabel *picture = nullptr;
        QLabel *text = nullptr;
        QString full = {};
    };

    Row addRow(const QString &name);
    void refresh();
    void show(Row *row, const QString &level, const QString &text);
    void elide(const Row &row) const;

    tessa::MessageLog *m_log;
    Row m_first;
    Row m_second;
};

} // namespace welmo::pendant
