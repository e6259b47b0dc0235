#include "instructions/movepropertypointwidget.h"

#include <QComboBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "data/report.h"
#include "instructions/line/problem.h"
#include "instructions/orbodata.h"
#include "instructions/pointedit.h"
#include "instructions/pointreport.h"

using namespace welmo;
using line::PointExpression;

namespace {

// splitPoint() backwards.
PointExpression expressionOf(const QStringList &parts)
{
    return PointExpression::parse(parts.value(0) + QLatin1Char('(')
                                  + parts.mid(1).join(QLatin1Char(',')) + QLatin1Char(')'));
}

} // namespace

MovePropertyPointWidget::MovePropertyPointWidget(QWidget *parent)
    : QWidget(parent)
    , m_tabs(new QTabWidget(this))
    , m_aux(new PointGroup(this))
    , m_target(new PointGroup(this))
{
    setObjectName(QStringLiteral("MovePropertyPointWidget"));
    m_tabs->setObjectName(QStringLiteral("twgtPoints"));
    m_tabs->setTabBarAutoHide(true);
    m_aux->setObjectName(QStringLiteral("wgtAux"));
    m_target->setObjectName(QStringLiteral("wgtTarget"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
    for (PointGroup *group : {m_aux, m_target}) {
        auto *page = new QWidget(this);
        page->hide(); // until it is a tab
        auto *pageLayout = new QVBoxLayout(page);
        pageLayout->addWidget(group);
        pageLayout->addStretch();
        if (group == m_target)
            m_tabs->addTab(page, tr("Target point"));
        connect(group, &PointGroup::pointAdded, this, &MovePropertyPointWidget::setPointlist);
    }
    connect(m_tabs, &QTabWidget::currentChanged, this, &MovePropertyPointWidget::onTabChanged);
}

MovePropertyPointWidget::~MovePropertyPointWidget() = default;

void MovePropertyPointWidget::initialize(const QString &type)
{
    // A lone tab needs no bar, nor the room for one.
    const int place = m_tabs->indexOf(m_aux->parentWidget());
    if (type != QLatin1String("movec"))
        m_tabs->removeTab(place);
    else if (place < 0)
        m_tabs->insertTab(0, m_aux->parentWidget(), tr("Auxiliary point"));
    m_tabs->setCurrentIndex(0);
    updateTool(OrboData::getCurrentTool());
    updateWobj(OrboData::getCurrentWobj());
    setPointlist();
}

void MovePropertyPointWidget::setPointlist()
{
    const QStringList names = points::names();
    m_aux->edit()->setPoints(names);
    m_target->edit()->setPoints(names);
}

QStringList MovePropertyPointWidget::splitPoint(const QString &text)
{
    return line::splitPoint(text);
}

void MovePropertyPointWidget::handleSetPoint(QComboBox *combo, const QString &text,
                                             const Setter &setter)
{
    const QStringList parts = splitPoint(text);
    PointEdit *edit = combo == m_aux->edit()->combo() ? m_aux->edit() : m_target->edit();
    if (!edit->choose(parts.value(1)))
        report::warning(reporterFor(this),
                        tr("There is no point %1 in the project").arg(parts.value(1)));
    if (!line::readsAsWritten(text))
        report::error(reporterFor(this), line::shown(line::messages::point));
    setter(parts);
}

void MovePropertyPointWidget::setTargetPoint(const QString &text)
{
    handleSetPoint(m_target->edit()->combo(), text,
                   [this](const QStringList &parts) { setTargetOffsAndComplex(parts); });
}

void MovePropertyPointWidget::setAuxPoint(const QString &text)
{
    handleSetPoint(m_aux->edit()->combo(), text,
                   [this](const QStringList &parts) { setAuxOffsAndComplex(parts); });
}

void MovePropertyPointWidget::setTargetOffsAndComplex(const QStringList &parts)
{
    m_target->edit()->setKindAndNumbers(expressionOf(parts));
}

void MovePropertyPointWidget::setAuxOffsAndComplex(const QStringList &parts)
{
    m_aux->edit()->setKindAndNumbers(expressionOf(parts));
}

QString MovePropertyPointWidget::getParam() const
{
    const auto text = [](const PointGroup *group) {
        return group->edit()->expression().format(PointExpression::Spelling::Property);
    };
    const bool circular = m_tabs->indexOf(m_aux->parentWidget()) >= 0;
    return circular ? text(m_aux) + QLatin1Char(',') + text(m_target) : text(m_target);
}

void MovePropertyPointWidget::updateTool(const QString &tool)
{
    m_aux->setTool(tool);
    m_target->setTool(tool);
}

void MovePropertyPointWidget::updateWobj(const QString &wobj)
{
    m_aux->setWorkObject(wobj);
    m_target->setWorkObject(wobj);
}

void MovePropertyPointWidget::onTabChanged(int)
{
    setPointlist();
}
