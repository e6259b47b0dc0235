#include "instructions/move/moveinsertwidget.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "instructions/move/moveparamwidget.h"
#include "instructions/move/pointreport.h"
#include "instructions/move/pointrobot.h"
#include "instructions/move/taughtnotice.h"

using namespace welmo;
using tl::PointExpression;

MoveInsertWidget::MoveInsertWidget(QWidget *parent)
    : QWidget(parent)
    , m_aux(new PointEdit(this))
    , m_target(new PointEdit(this))
    , m_parameters(new MoveParamWidget(this))
{
    setObjectName(QStringLiteral("MoveInsertWidget"));
    m_aux->setObjectName(QStringLiteral("wgtAux"));
    m_target->setObjectName(QStringLiteral("wgtTarget"));
    m_parameters->setObjectName(QStringLiteral("wgtMoveParam"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_auxBox = makeBox(tr("Auxiliary point"), m_aux);
    layout->addWidget(m_auxBox);
    layout->addWidget(makeBox(tr("Target point"), m_target));
    layout->addWidget(m_parameters);
    layout->addStretch();
    for (PointEdit *edit : {m_aux, m_target}) {
        connect(edit, &PointEdit::newPointWanted, this, [this, edit] {
            autoAddNewPoint(QString(), edit == m_aux, m_parameters->tool(), m_parameters->wobj());
        });
    }
}

MoveInsertWidget::~MoveInsertWidget() = default;

QGroupBox *MoveInsertWidget::makeBox(const QString &title, PointEdit *edit)
{
    auto *box = new QGroupBox(title, this);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(edit);
    addNotice(box, edit);
    return box;
}

void MoveInsertWidget::addNotice(QGroupBox *box, const PointEdit *edit)
{
    auto *notice = new TaughtNotice(box);
    box->layout()->addWidget(notice);
    const auto compare = [this, notice, edit] {
        notice->compare(edit->pointName(), m_parameters->tool(), m_parameters->wobj());
    };
    connect(edit, &PointEdit::pointChanged, notice, compare);
    connect(m_parameters, &MoveParamWidget::toolChanged, notice, compare);
    connect(m_parameters, &MoveParamWidget::wobjChanged, notice, compare);
    connect(notice, &TaughtNotice::ownWanted, m_parameters, &MoveParamWidget::useTaught);
}

void MoveInsertWidget::initialize(const QString &type)
{
    m_auxBox->setVisible(type == QLatin1String("movec"));
    initUI();
}

void MoveInsertWidget::initUI()
{
    initPointList();
    m_parameters->chooseActive();
}

void MoveInsertWidget::initPointList()
{
    const QStringList names = points::names();
    m_aux->setPoints(names);
    m_target->setPoints(names);
}

void MoveInsertWidget::refresh()
{
    initPointList();
    m_parameters->refresh();
    m_parameters->chooseActive();
}

void MoveInsertWidget::resetSbxTarget()
{
    m_target->resetNumbers();
}

void MoveInsertWidget::resetSbxAux()
{
    m_aux->resetNumbers();
}

QString MoveInsertWidget::getParam() const
{
    QStringList items;
    if (!m_auxBox->isHidden())
        items.append(m_aux->expression().format(PointExpression::Spelling::Insert));
    items.append(m_target->expression().format(PointExpression::Spelling::Insert));
    items.append(m_parameters->getParam());
    return items.join(QLatin1Char(','));
}

void MoveInsertWidget::autoAddNewPoint(const QString &name, bool auxiliary, const QString &tool,
                                       const QString &wobj)
{
    const QString added = robot::addPointHere(reporterFor(this), tool, wobj, name);
    if (added.isEmpty())
        return;
    initPointList();
    (auxiliary ? m_aux : m_target)->choose(added);
}

void MoveInsertWidget::onBtnTargetOffsClicked()
{
    m_target->setKind(PointEdit::Kind::Offs);
}

void MoveInsertWidget::onBtnTargetReltoolClicked()
{
    m_target->setKind(PointEdit::Kind::RelTool);
}

void MoveInsertWidget::onBtnAuxOffsClicked()
{
    m_aux->setKind(PointEdit::Kind::Offs);
}

void MoveInsertWidget::onBtnAuxReltoolClicked()
{
    m_aux->setKind(PointEdit::Kind::RelTool);
}
