#pragma once

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>

namespace welmo::pendant {

/// A row of buttons whose actions can also be started by keyboard shortcuts.
class ActionBar : public QFrame
{
    Q_OBJECT
public:
    explicit ActionBar(QWidget *parent = nullptr);

    /// Adds a button, named "btn" and @p name. Its shortcut works on the page around @p page.
    template<typename Receiver>
    QAction *add(const QString &text, const char *name, const QKeySequence &key, QWidget *page,
                 Receiver *receiver, void (Receiver::*slot)())
    {
        QAction *action = addButton(text, name, key, page);
        connect(action, &QAction::triggered, receiver, slot);
        return action;
    }
    /// The same with a picture in place of the text, which becomes the button's tool tip.
    template<typename Receiver>
    QAction *addIcon(const QString &picture, const QString &text, const char *name,
                     const QKeySequence &key, QWidget *page, Receiver *receiver,
                     void (Receiver::*slot)())
    {
        QAction *action = add(text, name, key, page, receiver, slot);
        usePicture(action, picture);
        return action;
    }
    void addSpace(int width) { m_layout->addSpacing(width); }
    /// Adds a widget that takes the remaining width.
    void addFiller(QWidget *widget) { m_layout->addWidget(widget, 1); }

private:
    void usePicture(QAction *action, const QString &picture);
    QAction *addButton(const QString &text, const char *name, const QKeySequence &key,
                       QWidget *page);

    QHBoxLayout *m_layout;
};

} // namespace welmo::pendant
