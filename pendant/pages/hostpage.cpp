#include "pendant/pages/hostpage.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace welmo::pendant {

namespace {

constexpr int widthForColumns = 860;

} // namespace

HostPage::HostPage(const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel(title, this))
{
    setAttribute(Qt::WA_StyledBackground);
    m_title->setObjectName(QStringLiteral("lblPageTitle"));
    // Beside an open side bar the page may be too narrow; it scrolls, since the window must not
    // grow.
    auto *area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("pndPageArea"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("pndPageContent"));
    m_body = new QVBoxLayout(content);
    area->setWidget(content);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(area, 1);
    m_body->setContentsMargins(16, 16, 16, 16);
    m_body->setSpacing(16);
}

void HostPage::setTitle(const QString &title)
{
    m_title->setText(title);
}

void HostPage::showTitle(bool shown)
{
    m_title->setVisible(shown);
}

void HostPage::addColumns(QBoxLayout *columns)
{
    m_columns = columns;
    m_body->addLayout(columns);
}

void HostPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_columns)
        m_columns->setDirection(width() < widthForColumns ? QBoxLayout::TopToBottom
                                                          : QBoxLayout::LeftToRight);
}

Card::Card(const QString &heading, QWidget *parent)
    : QFrame(parent)
    , m_body(new QVBoxLayout(this))
{
    m_body->setContentsMargins(20, 10, 20, 10);
    m_body->setSpacing(8);
    if (heading.isEmpty())
        return;
    auto *label = new QLabel(heading, this);
    label->setObjectName(QStringLiteral("lblCardHeading"));
    m_body->addWidget(label);
}

QLabel *Card::addText(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setWordWrap(true);
    m_body->addWidget(label);
    return label;
}

} // namespace welmo::pendant
