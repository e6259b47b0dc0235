#include "pendant/program/actionbar.h"

#include <QToolButton>

namespace welmo::pendant {

ActionBar::ActionBar(QWidget *parent)
    : QFrame(parent)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(6);
}

QAction *ActionBar::addButton(const QString &text, const char *name, const QKeySequence &key,
                              QWidget *page)
{
    auto *action = new QAction(text, page);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    page->addAction(action);
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String("btn") + QLatin1String(name));
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    m_layout->addWidget(button);
    return action;
}

} // namespace welmo::pendant
