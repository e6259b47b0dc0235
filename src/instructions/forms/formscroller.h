#pragma once

#include <QScrollArea>
#include <QStackedWidget>
#include <QTabWidget>

namespace welmo {

/// Holds a tall editor in an instruction's form: scrolls it up and down, never sideways.
class FormScroller : public QScrollArea
{
    Q_OBJECT
public:
    explicit FormScroller(QWidget *parent);

    /// Adds a tab with a new editor in a scroller. Both are made where they stay, since a widget
    /// with children that gets another parent is styled anew: half of the time of opening a form.
    template<typename Editor>
    static Editor *addTab(QTabWidget *tabs, const QString &title)
    {
        auto *scroller = new FormScroller(tabs->findChild<QStackedWidget *>());
        auto *editor = new Editor(scroller->viewport());
        tabs->addTab(scroller, title);
        return editor;
    }

protected:
    /// Lays out and styles the editor only now, which a tab that nobody opens never needs.
    void showEvent(QShowEvent *event) override;
};

} // namespace welmo
