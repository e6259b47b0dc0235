#include "pando/frame.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

namespace pando {

CenterWidget::CenterWidget(QWidget *parent)
    : QStackedWidget(parent)
{ }

void CenterWidget::addPage(QObject *owner, const QString &key, QWidget *page)
{
    Q_UNUSED(owner)
    QWidget *old = m_pages.value(key);
    const bool shown = old && old == currentWidget();
    m_pages.insert(key, page);
    addWidget(page);
    if (shown)
        setCurrentWidget(page);
    if (old != page)
        delete old;
}

bool CenterWidget::switchTo(const QString &key)
{
    QWidget *page = m_pages.value(key);
    if (!page)
        return false;
    setCurrentWidget(page);
    emit pageShown(key);
    return true;
}

QString CenterWidget::currentKey() const
{
    for (auto it = m_pages.begin(); it != m_pages.end(); ++it) {
        if (it.value() && it.value() == currentWidget())
            return it.key();
    }
    return {};
}

ExpandSideBar::ExpandSideBar(QWidget *parent)
    : QWidget(parent)
    , m_pages(new CenterWidget(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *area = new QScrollArea(this); // a page may be higher than a small screen
    area->setObjectName(QStringLiteral("sideArea"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(m_pages);
    layout->addWidget(area, 1);
    const QScrollBar *bar = area->verticalScrollBar();
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int last) {
        m_barWidth = last > 0 ? bar->sizeHint().width() : 0;
        if (m_pageWidth > 0)
            setPageWidth(m_pageWidth);
    });
    setAttribute(Qt::WA_StyledBackground);
    setVisible(false);
}

void ExpandSideBar::setPageWidth(int width)
{
    m_pageWidth = width;
    setFixedWidth(width + m_barWidth);
}

void ExpandSideBar::addPage(QObject *owner, const QString &key, QWidget *page)
{
    m_pages->addPage(owner, key, page);
}

bool ExpandSideBar::switchTo(const QString &key)
{
    return m_pages->switchTo(key);
}

QString ExpandSideBar::currentKey() const
{
    return m_pages->currentKey();
}

void ExpandSideBar::addBar(QWidget *bar)
{
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, bar);
}

bool ExpandSideBar::event(QEvent *event)
{
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        emit opened(event->type() == QEvent::ShowToParent);
    return QWidget::event(event);
}

StatusBar::StatusBar(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
{
    setAttribute(Qt::WA_StyledBackground);
}

void StatusBar::addItem(QObject *owner, const QString &key, QWidget *item, int stretch)
{
    Q_UNUSED(owner)
    insert(m_layout->count(), key, item, stretch);
}

void StatusBar::addBeforeItem(QObject *owner, const QString &key, const QString &before,
                              QWidget *item)
{
    Q_UNUSED(owner)
    QWidget *next = m_items.value(before);
    insert(next ? m_layout->indexOf(next) : m_layout->count(), key, item, 0);
}

void StatusBar::insert(int position, const QString &key, QWidget *item, int stretch)
{
    m_layout->insertWidget(position, item, stretch);
    if (QWidget *old = m_items.value(key); old && old != item)
        delete old;
    m_items.insert(key, item);
}

Frame &frame()
{
    static Frame current;
    return current;
}

} // namespace pando

pando::CenterWidget *instantiatedCenterWidget(pando::BModule *)
{
    return pando::frame().center;
}

pando::ExpandSideBar *instantiatedRightExpandSideWidget(pando::BModule *)
{
    return pando::frame().rightSide;
}

pando::StatusBar *instantiatedStatusBar(pando::BModule *)
{
    return pando::frame().status;
}
