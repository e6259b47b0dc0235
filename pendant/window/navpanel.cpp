#include "pendant/window/navpanel.h"

#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include "kelp/moduleobject.h"
#include "pendant/state/navigation.h"
#include "pendant/theme/look.h"
#include "vu/xtheme.h"

namespace welmo::pendant {

namespace {

constexpr int wideWidth = 184;
constexpr int narrowWidth = 64;
constexpr char groupName[] = "group";

QList<kelp::ModuleObject *> inMenuOrder(const kelp::ModuleObject *entries)
{
    QList<kelp::ModuleObject *> list;
    for (kelp::ModuleObject *entry : entries->cmobjs()) {
        const int position = entry->r(QStringLiteral("position"))->getInt(-1);
        list.insert(position < 0 ? list.size() : qMin(position, list.size()), entry);
    }
    return list;
}

QString pictureOf(const kelp::ModuleObject *entry)
{
    QString own = entry->r(QStringLiteral("icon"))->getString();
    if (!vu::xtheme::current().imagePath(own).isEmpty())
        return own; // a theme from elsewhere may lack it
    QString group = entry->r(QStringLiteral("group"))->getString();
    return QStringLiteral("widget/") + group.replace(QLatin1Char('.'), QLatin1Char('_'));
}

} // namespace

NavPanel::NavPanel(kelp::ModuleObject *entries, QWidget *parent)
    : QWidget(parent)
    , m_entries(entries)
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("pndNav"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedWidth(wideWidth);
    m_layout->setContentsMargins(8, 8, 8, 8);
    m_layout->setSpacing(4);
    entries->observeSubtree(true);
    connect(entries, &kelp::ModuleObject::touched, this, &NavPanel::scheduleRebuild);
    rebuild();
}

// An entry is filled leaf by leaf; the rebuild waits until it is complete.
void NavPanel::scheduleRebuild()
{
    if (std::exchange(m_stale, true))
        return;
    QMetaObject::invokeMethod(this, &NavPanel::rebuild, Qt::QueuedConnection);
}

void NavPanel::rebuild()
{
    m_stale = false;
    m_buttons.clear();
    while (QLayoutItem *item = m_layout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    QStringList groups;
    QHash<QString, QList<kelp::ModuleObject *>> members;
    for (kelp::ModuleObject *entry : inMenuOrder(m_entries)) {
        const QString group = entry->r(QStringLiteral("group"))->getString();
        if (!groups.contains(group))
            groups.append(group);
        members[group].append(entry);
    }
    for (const QString &group : groups)
        addGroup(group, members.value(group));
    m_layout->addStretch(1);
    setCurrent(m_current);
}

void NavPanel::addGroup(const QString &group, const QList<kelp::ModuleObject *> &entries)
{
    auto *heading = new QLabel(this);
    heading->setObjectName(QStringLiteral("lblGroup"));
    heading->setProperty(groupName, group);
    showHeading(heading);
    m_layout->addWidget(heading);
    for (const kelp::ModuleObject *entry : entries)
        addEntry(entry);
}

void NavPanel::addEntry(const kelp::ModuleObject *entry)
{
    const QString page = entry->r(QStringLiteral("nav"))->getString();
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("nav_") + entry->r(QStringLiteral("key"))->getString());
    button->setText(entry->r(QStringLiteral("title"))->getString());
    button->setIcon(inkBesideText(pictureOf(entry)));
    button->setIconSize(besideTextSize);
    button->setAccessibleName(button->text());
    showTitle(button);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setCheckable(true);
    connect(button, &QToolButton::clicked, this, [this, page] {
        setCurrent(m_current);
        emit chosen(page);
    });
    m_layout->addWidget(button);
    m_buttons.insert(page, button);
    m_titles.insert(page, button->text());
    showCount(page);
}

void NavPanel::setCount(const QString &key, int count)
{
    m_counts.insert(key, count);
    showCount(key);
}

void NavPanel::setNarrow(bool narrow)
{
    if (std::exchange(m_narrow, narrow) == narrow)
        return;
    setFixedWidth(narrow ? narrowWidth : wideWidth);
    setStyleWord(this, "narrow", narrow ? QStringLiteral("yes") : QString());
    for (auto *heading : findChildren<QLabel *>())
        showHeading(heading);
    for (QToolButton *button : qAsConst(m_buttons)) {
        showTitle(button);
        button->style()->unpolish(button); // its style rules depend on the panel's state
        button->style()->polish(button);
    }
}

void NavPanel::showHeading(QLabel *heading)
{
    heading->setText(m_narrow ? QString() : groupTitle(heading->property(groupName).toString()));
}

void NavPanel::showTitle(QToolButton *button)
{
    button->setToolButtonStyle(m_narrow ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    button->setToolTip(m_narrow ? button->accessibleName() : QString());
}

void NavPanel::showCount(const QString &key)
{
    QToolButton *button = m_buttons.value(key);
    if (!button)
        return;
    const int count = m_counts.value(key);
    const QString title = m_titles.value(key);
    button->setText(count > 0 ? QStringLiteral("%1 (%2)").arg(title).arg(count) : title);
    setStyleWord(button, "counts", count > 0 ? QStringLiteral("yes") : QString());
}

void NavPanel::setCurrent(const QString &key)
{
    m_current = key;
    for (auto it = m_buttons.begin(); it != m_buttons.end(); ++it)
        it.value()->setChecked(it.key() == key);
}

} // namespace welmo::pendant
