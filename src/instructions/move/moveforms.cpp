#include "instructions/move/moveforms.h"

#include <QVBoxLayout>
#include <QtDebug>

#include "data/orbodata.h"
#include "instructions/move/moveinsertwidget.h"
#include "instructions/move/moveparamwidget.h"
#include "instructions/move/movepropertypointwidget.h"
#include "tl/lineformat.h"

namespace welmo {

namespace {

QString moveType(tl::Word word)
{
    return tl::row(word).points == 2 ? QStringLiteral("movec") : QStringLiteral("movel");
}

} // namespace

MoveInsertForm::MoveInsertForm(tl::Word word, QWidget *parent)
    : InsertForm(word, parent)
    , m_panel(new MoveInsertWidget(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    m_panel->initialize(moveType(word));
    onProjectChanged(this, [this] { m_panel->refresh(); });
}

QString MoveInsertForm::ToString()
{
    return tl::row(word()).text() + QLatin1Char(' ') + m_panel->getParam();
}

MovePropertyForm::MovePropertyForm(tl::Word word, QWidget *parent)
    : PropertyForm(word, parent)
    , m_points(new MovePropertyPointWidget(this))
    , m_parameters(new MoveParamWidget(this))
{
    m_parameters->setObjectName(QStringLiteral("wgtMoveParam"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_points);
    layout->addWidget(m_parameters);
    layout->addStretch();
    m_points->initialize(moveType(word));
    connect(m_parameters, &MoveParamWidget::toolChanged, m_points,
            &MovePropertyPointWidget::updateTool);
    connect(m_parameters, &MoveParamWidget::wobjChanged, m_points,
            &MovePropertyPointWidget::updateWobj);
    connect(m_points, &MovePropertyPointWidget::toolAndObjectWanted, m_parameters,
            &MoveParamWidget::useTaught);
    // The robot is to move with the tool and work object of the form, not with the active ones.
    m_points->updateTool(m_parameters->tool());
    m_points->updateWobj(m_parameters->wobj());
    onProjectChanged(this, [this] {
        m_parameters->refresh();
        m_points->refresh();
    });
}

void MovePropertyForm::FillWith(const QString &text)
{
    const tl::ParsedLine move = read(text);
    if (move.isRefused) {
        qDebug("part size: %d", move.tokens.size());
        report(move.problems);
        return;
    }
    if (move.aux)
        m_points->setAuxPoint(move.aux->token.text);
    m_points->setTargetPoint(move.target->token.text);
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
    return tl::formatMoveLine(word(), {m_points->getParam()}, m_parameters->getParam());
}

} // namespace welmo
