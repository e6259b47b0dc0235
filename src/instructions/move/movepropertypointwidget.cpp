#include "instructions/move/movepropertypointwidget.h"

#include <QComboBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "data/orbodata.h"
#include "data/report.h"
#include "instructions/move/pointedit.h"
#include "instructions/move/pointreport.h"
#include "tl/problem.h"

using namespace welmo;
using tl::PointExpression;

namespace {

// Keeps the numbers of an unknown function, though it is read as a plain point, which has none.
PointExpression expressionOf(const QStringList &parts)
{
    PointExpression expression = PointExpression::fromParts(parts);
    if (expression.kind == PointExpression::Kind::Plain) {
        for (const QString &number : parts.mid(2))
            expression.numbers.append(number.toDouble());
    }
    return expression;
}

} // namespace

MovePropertyPointWidget::MovePropertyPointWidget(QWidget *parent)
    : QWidget(parent)
    , m_tabs(new QTabWidget(this))
    , m_target(addGroup(QStringLiteral("wgtTarget"), tr("Target point")))
{
    setObjectName(QStringLiteral("MovePropertyPointWidget"));
    m_tabs->setObjectName(QStringLiteral("twgtPoints"));
    m_tabs->setTabBarAutoHide(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    connect(m_tabs, &QTabWidget::currentChanged, this, &MovePropertyPointWidget::onTabChanged);
}

MovePropertyPointWidget::~MovePropertyPointWidget() = default;

PointGroup *MovePropertyPointWidget::addGroup(const QString &name, const QString &title)
{
    auto *page = new QWidget;
    auto *group = new PointGroup(page);
    group->setObjectName(name);
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(group);
    layout->addStretch();
    connect(group, &PointGroup::pointAdded, this, &MovePropertyPointWidget::setPointlist);
    connect(group, &PointGroup::toolAndObjectWanted, this,
            &MovePropertyPointWidget::toolAndObjectWanted);
    m_tabs->insertTab(0, page, title);
    return group;
}

QList<PointGroup *> MovePropertyPointWidget::groups() const
{
    return m_aux ? QList<PointGroup *>{m_aux, m_target} : QList<PointGroup *>{m_target};
}

void MovePropertyPointWidget::initialize(const QString &type)
{
    // The second group is made only when needed: it takes as long as the rest of the form.
    const bool circular = type == QLatin1String("movec");
    if (circular && !m_aux)
        m_aux = addGroup(QStringLiteral("wgtAux"), tr("Auxiliary point"));
    else if (!circular && m_aux)
        delete std::exchange(m_aux, nullptr)->parentWidget();
    m_tabs->setCurrentIndex(0);
    updateTool(OrboData::getCurrentTool());
    updateWobj(OrboData::getCurrentWobj());
    setPointlist();
}

void MovePropertyPointWidget::setPointlist()
{
    const QStringList names = points::names();
    for (PointGroup *group : groups())
        group->edit()->setPoints(names);
}

void MovePropertyPointWidget::refresh()
{
    setPointlist();
    for (PointGroup *group : groups())
        group->refresh();
}

QStringList MovePropertyPointWidget::splitPoint(const QString &text)
{
    return tl::splitPoint(text);
}

void MovePropertyPointWidget::handleSetPoint(QComboBox *combo, const QString &text,
                                             const Setter &setter)
{
    const QStringList parts = splitPoint(text);
    const bool aux = m_aux && combo == m_aux->edit()->combo();
    PointEdit *edit = aux ? m_aux->edit() : m_target->edit();
    if (!edit->choose(parts.value(1)) && !points::find(parts.value(1)))
        report::warning(reporterFor(this),
                        tr("There is no point %1 in the project").arg(parts.value(1)));
    if (!tl::readPoint(text).isAsWritten)
        report::error(reporterFor(this), tl::shown(tl::messages::point));
    setter(parts);
}

void MovePropertyPointWidget::setTargetPoint(const QString &text)
{
    handleSetPoint(m_target->edit()->combo(), text,
                   [this](const QStringList &parts) { setTargetOffsAndComplex(parts); });
}

void MovePropertyPointWidget::setAuxPoint(const QString &text)
{
    if (!m_aux)
        return;
    handleSetPoint(m_aux->edit()->combo(), text,
                   [this](const QStringList &parts) { setAuxOffsAndComplex(parts); });
}

void MovePropertyPointWidget::setTargetOffsAndComplex(const QStringList &parts)
{
    m_target->edit()->setKindAndNumbers(expressionOf(parts));
}

void MovePropertyPointWidget::setAuxOffsAndComplex(const QStringList &parts)
{
    if (m_aux)
        m_aux->edit()->setKindAndNumbers(expressionOf(parts));
}

QString MovePropertyPointWidget::getParam() const
{
    const auto text = [](const PointGroup *group) {
        return group->edit()->expression().format(PointExpression::Spelling::Property);
    };
    return m_aux ? text(m_aux) + QLatin1Char(',') + text(m_target) : text(m_target);
}

void MovePropertyPointWidget::computeComplex(PointGroup *point)
{
    if (point)
        point->computeComplex();
}

void MovePropertyPointWidget::saveLocation(PointGroup *point)
{
    if (point)
        point->saveLocation();
}

void MovePropertyPointWidget::updateLocation(PointGroup *point)
{
    if (point)
        point->updateLocation();
}

void MovePropertyPointWidget::moveToPoint(PointGroup *point, Motion motion)
{
    if (point)
        point->moveToPoint(motion);
}

void MovePropertyPointWidget::moveToComplex(PointGroup *point, Motion motion)
{
    if (point)
        point->moveToComplex(motion);
}

void MovePropertyPointWidget::updateTool(const QString &tool)
{
    for (PointGroup *group : groups())
        group->setTool(tool);
}

void MovePropertyPointWidget::updateWobj(const QString &wobj)
{
    for (PointGroup *group : groups())
        group->setWorkObject(wobj);
}

void MovePropertyPointWidget::onTabChanged(int)
{
    setPointlist();
}
