#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QMessageBox;

namespace welmo::pendant {

/// Dims the window behind a message box and gives the box the pendant's own icon: without a window
/// manager nothing else sets it apart from the page. Works in the whole application.
class DialogShade : public QObject
{
    Q_OBJECT
public:
    explicit DialogShade(QObject *parent = nullptr);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void dim(QMessageBox *box);

    QPointer<QWidget> m_shade;
    QPointer<QObject> m_box; // the box that it is behind
};

} // namespace welmo::pendant
