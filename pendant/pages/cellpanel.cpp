#include "pendant/pages/cellpanel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QVBoxLayout>

#include "pendant/state/cell.h"
#include "pendant/state/leveltext.h"
#include "vu/switchbutton.h"

namespace welmo::pendant {

using tessa::ControllerStatus;

CellPanel::CellPanel(ControllerStatus *status, Cell *cell, bool hasLevel, QWidget *parent)
    : Card(tr("The cell"), parent)
    , m_status(status)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    m_mode = addChoice(grid, tr("Operating mode"), QStringLiteral("cbxMode"),
                       {tr("Manual"), tr("Automatic")});
    m_power =
        addChoice(grid, tr("Power"), QStringLiteral("cbxPower"), {tr("Power off"), tr("Power on")});
    if (hasLevel) {
        m_level = addChoice(grid, tr("User level"), QStringLiteral("cbxLevel"), levelTexts());
        connect(m_level, qOverload<int>(&QComboBox::activated), status,
                [status](int row) { status->setLevel(static_cast<ControllerStatus::Level>(row)); });
    }
    m_fault = new EnableButton(this);
    m_fault->setObjectName(QStringLiteral("btnCellFault"));
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(tr("Emergency stop pressed"), this), row, 0);
    grid->addWidget(m_fault, row, 1, Qt::AlignRight);
    body()->addLayout(grid);
    connect(m_mode, qOverload<int>(&QComboBox::activated), cell,
            [cell](int index) { cell->turn(QStringLiteral("automatic"), index == 1); });
    connect(m_power, qOverload<int>(&QComboBox::activated), cell,
            [cell](int index) { cell->turn(QStringLiteral("power"), index == 1); });
    connect(m_fault, &EnableButton::enabled, cell,
            [cell](bool on) { cell->turn(QStringLiteral("fault"), on); });
    connect(cell, &Cell::changed, this, &CellPanel::refresh);
    connect(status, &ControllerStatus::levelChanged, this, &CellPanel::refresh);
    refresh();
}

QComboBox *CellPanel::addChoice(QGridLayout *grid, const QString &caption, const QString &name,
                                const QStringList &texts)
{
    auto *combo = new QComboBox(this);
    combo->setObjectName(name);
    combo->setAccessibleName(caption);
    combo->setView(new QListView(combo));
    combo->addItems(texts);
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(caption, this), row, 0);
    grid->addWidget(combo, row, 1);
    return combo;
}

void CellPanel::refresh()
{
    m_mode->setCurrentIndex(static_cast<int>(m_status->mode()));
    m_power->setCurrentIndex(static_cast<int>(m_status->power()));
    if (m_level)
        m_level->setCurrentIndex(static_cast<int>(m_status->level()));
    const QSignalBlocker blocker(m_fault);
    m_fault->setChecked(m_status->state() == ControllerStatus::State::Fault);
}

} // namespace welmo::pendant
