#include "pendant/pages/faultspanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMetaEnum>
#include <QPushButton>

#include "vu/switchbutton.h"

namespace welmo::pendant {

using welmo::controller::Faults;

FaultsPanel::FaultsPanel(Faults *faults, QWidget *parent)
    : Card(tr("What is broken"), parent)
    , m_faults(faults)
{
    addSwitch(Faults::Fault::LinkDown, tr("The controller cannot be reached"));
    addSwitch(Faults::Fault::DiskFull, tr("Its disk is full"));
    addSwitch(Faults::Fault::WelderError, tr("The welder reports an error"));
    addSwitch(Faults::Fault::NoGas, tr("There is no gas"));
    addSwitch(Faults::Fault::NoArc, tr("The arc does not strike"));
    addSwitch(Faults::Fault::ArcBreaks, tr("The arc breaks off"));
    addSwitch(Faults::Fault::WireStuck, tr("The wire does not move"));
    addSwitch(Faults::Fault::WireSticks, tr("The wire freezes at the end of a weld"));
    body()->addStretch(1);
    auto *mend = new QPushButton(tr("Mend everything"), this);
    mend->setObjectName(QStringLiteral("btnClearFaults"));
    connect(mend, &QPushButton::clicked, faults, &Faults::clear);
    body()->addWidget(mend, 0, Qt::AlignLeft);
    connect(faults, &Faults::changed, this, &FaultsPanel::refresh);
    refresh();
}

void FaultsPanel::addSwitch(Faults::Fault fault, const QString &text)
{
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel(text, this), 1);
    auto *button = new EnableButton(this);
    button->setObjectName(
        QStringLiteral("btnFault_")
        + QLatin1String(QMetaEnum::fromType<Faults::Fault>().valueToKey(static_cast<int>(fault))));
    button->setAccessibleName(text);
    connect(button, &EnableButton::enabled, m_faults,
            [faults = m_faults, fault](bool on) { faults->set(fault, on); });
    row->addWidget(button);
    body()->addLayout(row);
    m_switches.append({fault, button});
}

void FaultsPanel::refresh()
{
    for (const Switch &entry : qAsConst(m_switches)) {
        const QSignalBlocker blocker(entry.button);
        entry.button->setChecked(m_faults->isOn(entry.fault));
    }
}

} // namespace welmo::pendant
