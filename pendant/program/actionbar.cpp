#include "pendant/program/actionbar.h"

#include <QToolButton>

#include "pendant/theme/look.h"

namespace welmo::pendant {

namespace {

constexpr QSize pictureSize{26, 26};

} // namespace

ActionBar::ActionBar(QWidget *parent)
    : QFrame(parent)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(4);
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

void ActionBar::usePicture(QAction *action, const QString &picture)
{
    auto *button = static_cast<QToolButton *>(m_layout->itemAt(m_layout->count() - 1)->widget());
    const bool isMain = button->objectName() == QLatin1String("btnProgramRun");
    const bool isStop = button->objectName() == QLatin1String("btnProgramStop");
    action->setIcon(inkIcon(QStringLiteral("widget/line_") + picture,
                            isMain       ? QStringLiteral("white")
                                : isStop ? QStringLiteral("error")
                                         : QStringLiteral("text")));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIconSize(pictureSize);
    button->setAccessibleName(action->text());
}

} // namespace welmo::pendant
