#include "pendant/pages/answerspanel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>

#include "controller/core/faults.h"
#include "controller/core/request.h"
#include "schema/filesets.h"
#include "schema/names.h"

namespace welmo::pendant {

AnswersPanel::AnswersPanel(controller::Faults *faults, QWidget *parent)
    : Card(tr("How it answers"), parent)
    , m_faults(faults)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    m_delay = addChoice(grid, tr("Delay"), QStringLiteral("cbxDelay"));
    m_path = addChoice(grid, tr("Request for"), QStringLiteral("cbxRefusedPath"));
    m_code = addChoice(grid, tr("Refusal"), QStringLiteral("cbxRefusalCode"));
    body()->addLayout(grid);
    for (int ms : {0, 100, 500, 1000, 3000})
        m_delay->addItem(tr("%1 ms").arg(ms), ms);
    connect(m_delay, qOverload<int>(&QComboBox::activated), faults,
            [this] { m_faults->setDelay(m_delay->currentData().toInt()); });
    fillRefusals();
    auto *actions = new QHBoxLayout;
    addAction(actions, tr("Refuse one such"), QStringLiteral("btnRefuseNext"),
              &AnswersPanel::refuseNext);
    addAction(actions, tr("Lose one answer"), QStringLiteral("btnLoseNext"),
              &AnswersPanel::loseNext);
    actions->addStretch(1);
    body()->addLayout(actions);
    body()->addStretch(1);
    connect(faults, &controller::Faults::changed, this, &AnswersPanel::refresh);
    refresh();
}

QComboBox *AnswersPanel::addChoice(QGridLayout *grid, const QString &caption, const QString &name)
{
    auto *combo = new QComboBox(this);
    combo->setObjectName(name);
    combo->setView(new QListView(combo));
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(caption, this), row, 0);
    grid->addWidget(combo, row, 1);
    return combo;
}

void AnswersPanel::addAction(QHBoxLayout *row, const QString &text, const QString &name,
                             void (AnswersPanel::*action)())
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, action);
    row->addWidget(button);
}

// Paths are shown untranslated, as in the controller's log.
void AnswersPanel::fillRefusals()
{
    for (const schema::FileSet *set : schema::fileSets())
        m_path->addItem(set->node());
    m_path->addItems({names::setWeldMode, names::setWelder, names::wireFeed, names::gasFlow});
    m_code->addItem(tr("Storage failed (%1)").arg(controller::StorageFailed),
                    controller::StorageFailed);
    m_code->addItem(tr("Wrong state (%1)").arg(controller::WrongState), controller::WrongState);
    m_code->addItem(tr("Out of range (%1)").arg(controller::OutOfRange), controller::OutOfRange);
}

void AnswersPanel::refuseNext()
{
    m_faults->setCode(m_path->currentText(), m_code->currentData().toInt(), 1);
}

void AnswersPanel::loseNext()
{
    m_faults->loseAnswers(1);
}

void AnswersPanel::refresh()
{
    m_delay->setCurrentIndex(m_delay->findData(m_faults->delay()));
}

} // namespace welmo::pendant
