#include "pendant/pages/controllerpage.h"

#include <QHBoxLayout>
#include <QLabel>

#include "pendant/pages/answerspanel.h"
#include "pendant/pages/cellpanel.h"
#include "pendant/pages/controlpanel.h"
#include "pendant/pages/faultspanel.h"
#include "pendant/state/linkbadge.h"
#include "pendant/state/linkcontrol.h"
#include "tessa/xservice.h"
#include "vu/switchbutton.h"

namespace welmo::pendant {

ControllerPage::ControllerPage(LinkControl *link, Cell *cell, tessa::ControllerStatus *status,
                               controller::Faults *faults, QWidget *parent)
    : HostPage(tr("Controller"), parent)
{
    auto *row = new QHBoxLayout;
    auto *right = new QVBoxLayout;
    body()->setContentsMargins(16, 10, 16, 10); // so that all fits without scrolling
    row->setSpacing(10);
    right->setSpacing(10);
    right->addWidget(makeLink(link));
    right->addWidget(new CellPanel(status, cell, faults != nullptr, this));
    if (faults) {
        row->addWidget(new FaultsPanel(faults, this), 1);
        right->addWidget(new AnswersPanel(faults, this));
    } else {
        // Several pendants may use the same cell.
        right->addWidget(new ControlPanel(xservice(), this));
    }
    right->addStretch(1);
    row->addLayout(right, 1);
    addColumns(row);
    body()->addStretch(1);
}

QWidget *ControllerPage::makeLink(LinkControl *link)
{
    auto *card = new Card(QString(), this);
    auto *row = new QHBoxLayout;
    row->addWidget(new LinkBadge(link, card), 1);
    auto *button = new EnableButton(card);
    button->setObjectName(QStringLiteral("btnControllerLink"));
    button->setChecked(link->isWanted());
    connect(button, &EnableButton::enabled, link, &LinkControl::setWanted);
    connect(link, &LinkControl::changed, button, [button, link] {
        const QSignalBlocker blocker(button);
        button->setChecked(link->isWanted());
    });
    row->addWidget(button);
    card->body()->addLayout(row);
    return card;
}

} // namespace welmo::pendant
