#include "instructions/move/pointgroup.h"

#include <QPointer>
#include <algorithm>

#include "adapter/hostadapter.h"
#include "data/arcweldservice.h"
#include "data/report.h"
#include "instructions/move/pointedit.h"
#include "instructions/move/pointreport.h"
#include "instructions/move/taughtnotice.h"
#include "ui_pointgroup.h"

namespace welmo {

using namespace welmo;
using robot::Motion;

PointGroup::PointGroup(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::PointGroup>())
    , m_taught(new TaughtNotice(this))
{
    ui->setupUi(this);
    ui->verticalLayout->insertWidget(1, m_taught);
    initConnect();
    showPoint();
}

PointGroup::~PointGroup() = default;

void PointGroup::initConnect()
{
    connect(ui->wgtPoint, &PointEdit::pointChanged, this, &PointGroup::showPoint);
    connect(ui->wgtPoint, &PointEdit::edited, this, &PointGroup::forgetComplex);
    connect(ui->wgtPoint, &PointEdit::newPointWanted, this, &PointGroup::saveLocation);
    connect(m_taught, &TaughtNotice::ownWanted, this, &PointGroup::toolAndObjectWanted);
    connect(ui->wgtPosition, &PointRow::edited, this, [this] { keepPosition(tr("Edited")); });
    const auto on = [this](QPushButton *button, const auto &action) {
        connect(button, &QPushButton::clicked, this, action);
    };
    on(ui->btnUpdateLocation, &PointGroup::updateLocation);
    on(ui->btnCompute, &PointGroup::computeComplex);
    on(ui->btnPointMoveJ, [this] { moveToPoint(Motion::Joint); });
    on(ui->btnPointMoveL, [this] { moveToPoint(Motion::Linear); });
    on(ui->btnComplexMoveJ, [this] { moveToComplex(Motion::Joint); });
    on(ui->btnComplexMoveL, [this] { moveToComplex(Motion::Linear); });
    on(ui->btnStop, &PointGroup::stopMove);
}

PointEdit *PointGroup::edit() const
{
    return ui->wgtPoint;
}

void PointGroup::showPoint()
{
    m_point = points::find(ui->wgtPoint->pointName());
    m_showsPoint = true;
    ui->wgtPosition->setTitle(tr("Point"));
    ui->wgtPosition->setEnabled(m_point.has_value());
    for (QWidget *widget : {ui->btnPointMoveJ, ui->btnPointMoveL, ui->btnCompute})
        widget->setEnabled(m_point.has_value());
    if (m_point) {
        ui->wgtPosition->setValues(m_point->pose);
        m_positionFrame = m_point->frame;
    } else {
        ui->wgtPosition->clear();
    }
    forgetComplex();
    compareWithPoint();
}

void PointGroup::keepPosition(const QString &title)
{
    m_showsPoint = false;
    ui->wgtPosition->setTitle(title);
}

void PointGroup::refresh()
{
    const auto point = points::find(ui->wgtPoint->pointName());
    const bool isSame =
        point.has_value() == m_point.has_value() && (!point || point->isAt(*m_point));
    if (!isSame && m_showsPoint)
        showPoint();
    else if (!isSame)
        forgetComplex();
    m_point = point;
    compareWithPoint();
}

void PointGroup::setTool(const QString &tool)
{
    m_tool = tool;
    compareWithPoint();
}

void PointGroup::setWorkObject(const QString &workObject)
{
    m_workObject = workObject;
    compareWithPoint();
}

void PointGroup::compareWithPoint()
{
    m_taught->compare(ui->wgtPoint->pointName(), m_tool, m_workObject);
}

void PointGroup::forgetComplex()
{
    ui->wgtComplex->clear();
    for (QWidget *button : {ui->btnComplexMoveJ, ui->btnComplexMoveL})
        button->setEnabled(false);
}

void PointGroup::updateLocation()
{
    // The message box runs an event loop, in which the form may be deleted.
    const QPointer<PointGroup> self(this);
    const bool agreed =
        host::isConfirmed(tr("Robot position"), tr("Determine the refresh point?"), tr("OK"));
    if (!agreed || !self)
        return;
    const auto position = robot::position(m_tool, m_workObject);
    if (!position) {
        report::error(reporterFor(this), tr("get robot position fail"));
        return;
    }
    ui->wgtPosition->setEnabled(true);
    keepPosition(tr("Robot"));
    ui->wgtPosition->setValues(position->pose);
    m_positionFrame = points::frameOf(m_workObject);
    for (QWidget *button : {ui->btnPointMoveJ, ui->btnPointMoveL})
        button->setEnabled(true);
}

void PointGroup::saveLocation()
{
    const QString name = robot::addPointHere(reporterFor(this), m_tool, m_workObject);
    if (name.isEmpty())
        return;
    emit pointAdded();
    ui->wgtPoint->choose(name);
}

void PointGroup::computeComplex()
{
    using Kind = tl::PointExpression::Kind;
    const tl::PointExpression expression = ui->wgtPoint->expression();
    const auto point = points::find(expression.name);
    if (!point)
        return;
    PoseValues numbers{};
    std::copy(expression.numbers.begin(), expression.numbers.end(), numbers.begin());
    ui->wgtComplex->setValues(expression.kind == Kind::RelTool
                                  ? toolRelativePose(point->pose, numbers)
                                  : offsetPose(point->pose, numbers));
    m_complexFrame = point->frame;
    for (QWidget *button : {ui->btnComplexMoveJ, ui->btnComplexMoveL})
        button->setEnabled(true);
}

void PointGroup::moveToPoint(Motion motion)
{
    if (ui->btnPointMoveJ->isEnabledTo(this))
        move(ui->wgtPosition->values(), m_positionFrame, motion);
}

void PointGroup::moveToComplex(Motion motion)
{
    if (ui->btnComplexMoveJ->isEnabledTo(this))
        move(ui->wgtComplex->values(), m_complexFrame, motion);
}

void PointGroup::move(const PoseValues &pose, const PoseFrame &frame, Motion motion)
{
    if (report::requireConnection() && !robot::moveTo(pose, frame, m_tool, motion))
        report::error(reporterFor(this), tr("move to point fail"));
}

void PointGroup::stopMove()
{
    if (!robot::stop())
        report::error(reporterFor(this), tr("stop move fail"));
}

} // namespace welmo
