#include "pendant/state/linkbadge.h"

#include <QHBoxLayout>
#include <QLabel>

#include "pendant/state/linkcontrol.h"
#include "pendant/theme/look.h"

namespace welmo::pendant {

LinkBadge::LinkBadge(LinkControl *link, QWidget *parent)
    : QFrame(parent)
    , m_link(link)
    , m_picture(new QLabel(this))
    , m_text(new QLabel(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_picture);
    layout->addWidget(m_text, 1);
    m_text->setObjectName(QStringLiteral("lblLinkState"));
    connect(link, &LinkControl::changed, this, &LinkBadge::refresh);
    refresh();
}

void LinkBadge::refresh()
{
    m_picture->setPixmap(QPixmap(m_link->picture()));
    m_text->setText(m_link->text());
    setStyleWord(m_text, "link", m_link->word());
}

} // namespace welmo::pendant
