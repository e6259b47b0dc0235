#include "pendant/pages/controlpanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "schema/names.h"
#include "tessa/xservice.h"

namespace welmo::pendant {

namespace {

constexpr int numberKept = 4; // signs of the number after the machine's name

// Several pendants may have the same user.
QString holderText(const kelp::ModuleObject &control)
{
    const QString user = control.r(QStringLiteral("user"))->getString();
    const QString client = control.r(QStringLiteral("client"))->getString();
    const int number = client.lastIndexOf(QLatin1Char('-')) + 1;
    return client.isEmpty() ? user
                            : QStringLiteral("%1 (%2)").arg(user, client.left(number + numberKept));
}

} // namespace

ControlPanel::ControlPanel(XService *service, QWidget *parent)
    : Card(tr("Control"), parent)
    , m_service(service)
    , m_holder(addText({}))
    , m_take(new QPushButton(tr("Take control"), this))
    , m_give(new QPushButton(tr("Give control back"), this))
{
    m_holder->setObjectName(QStringLiteral("lblControl"));
    m_take->setObjectName(QStringLiteral("btnTakeControl"));
    m_give->setObjectName(QStringLiteral("btnGiveControl"));
    auto *row = new QHBoxLayout;
    row->addWidget(m_take);
    row->addWidget(m_give);
    row->addStretch(1);
    body()->addLayout(row);
    connect(m_take, &QPushButton::clicked, this, [this] { run(names::takeControl); });
    connect(m_give, &QPushButton::clicked, this, [this] { run(names::giveControl); });
    connect(service, &XService::cameUp, this, &ControlPanel::follow);
    connect(service, &XService::connectedChanged, this, &ControlPanel::refresh);
    connect(service->watchNode(names::control), &kelp::ModuleObject::changed, this,
            &ControlPanel::refresh);
    refresh();
}

void ControlPanel::follow()
{
    m_service->watch(this, names::control, true);
    refresh();
}

void ControlPanel::refresh()
{
    QString user;
    bool mine = false;
    if (m_service->isConnected()) {
        const auto control = m_service->get(this, names::control);
        user = holderText(*control);
        mine = control->r(QStringLiteral("mine"))->getBool();
    }
    const bool connected = m_service->isConnected();
    if (!connected)
        m_holder->setText(tr("Nobody knows while the link is down."));
    else if (mine)
        m_holder->setText(tr("This pendant holds control, as %1.").arg(user));
    else if (user.isEmpty())
        m_holder->setText(tr("Nobody holds control."));
    else
        m_holder->setText(tr("%1 holds control. Stopping works from here too.").arg(user));
    m_take->setEnabled(connected && user.isEmpty());
    m_give->setEnabled(mine);
}

void ControlPanel::run(const QString &command)
{
    m_service->execCommand(this, command);
    refresh();
}

} // namespace welmo::pendant
