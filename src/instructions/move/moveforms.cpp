#include "instructions/move/moveforms.h"

#include <QVBoxLayout>
#include <QtDebug>

#include "instructions/move/moveinsertwidget.h"
#include "instructions/move/moveparamwidget.h"
#include "instructions/move/movepropertypointwidget.h"
#include "tl/moveline.h"

using namespace welmo;

namespace {

QString moveType(tl::Instruction instruction)
{
    return instruction == tl::Instruction::WMoveC ? QStringLiteral("movec")
                                                  : QStringLiteral("movel");
}

} // namespace

MoveInsertForm::MoveInsertForm(tl::Instruction instruction, QWidget *parent)
    : InsertForm(instruction, parent)
    , m_panel(new MoveInsertWidget(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    m_panel->initialize(moveType(instruction));
}

QString MoveInsertForm::ToString()
{
    return tl::instructionName(instruction()) + QLatin1Char(' ') + m_panel->getParam();
}

MovePropertyForm::MovePropertyForm(tl::Instruction instruction, QWidget *parent)
    : PropertyForm(instruction, parent)
    , m_points(new MovePropertyPointWidget(this))
    , m_parameters(new MoveParamWidget(this))
{
    m_parameters->setObjectName(QStringLiteral("wgtMoveParam"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_points);
    layout->addWidget(m_parameters);
    layout->addStretch();
    m_points->initialize(moveType(instruction));
    connect(m_parameters, &MoveParamWidget::toolChanged, m_points,
            &MovePropertyPointWidget::updateTool);
    connect(m_parameters, &MoveParamWidget::wobjChanged, m_points,
            &MovePropertyPointWidget::updateWobj);
    connect(m_points, &MovePropertyPointWidget::toolAndObjectWanted, m_parameters,
            &MoveParamWidget::useTaught);
    // From here on the robot is moved with what the form shows, not with what is active elsewhere.
    m_points->updateTool(m_parameters->tool());
    m_points->updateWobj(m_parameters->wobj());
}

void MovePropertyForm::FillWith(const QString &text)
{
    const tl::MoveLine move = tl::parseMoveLine(instruction(), text);
    if (!move.problems.isEmpty()) {
        qDebug("part size: %d", move.tokenCount);
        report(move.problems);
        return;
    }
    if (move.aux)
        m_points->setAuxPoint(move.aux->text);
    m_points->setTargetPoint(move.target->text);
    m_parameters->setSpeedText(move.speed->text);
    m_parameters->setZoneText(move.zone->text);
    m_parameters->setToolText(move.tool->text);
    if (move.wobj)
        m_parameters->setWobj(move.wobj->text);
    if (move.weave)
        m_parameters->setWeaveData(move.weave->text);
}

QString MovePropertyForm::ToString()
{
    return tl::formatMoveLine(instruction(), {m_points->getParam()}, m_parameters->getParam());
}
