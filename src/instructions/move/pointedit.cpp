#include "instructions/move/pointedit.h"

#include <QSignalBlocker>

#include "ui_pointedit.h"
#include "widgets/touchcombo.h"

namespace welmo {

namespace {

constexpr int unknownRole = Qt::UserRole + 1; // true: the project lacks the point

} // namespace

PointEdit::PointEdit(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::PointEdit>())
{
    ui->setupUi(this);
    makeTouchable(ui->cbxPoint);
    ui->wgtOffsets->showHeader();
    connect(ui->cbxPoint, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &PointEdit::pointChanged);
    connect(this, &PointEdit::pointChanged, this, &PointEdit::edited);
    connect(ui->wgtOffsets, &PointRow::edited, this, &PointEdit::edited);
    connect(ui->btnNewPoint, &QPushButton::clicked, this, &PointEdit::newPointWanted);
    for (QRadioButton *button : {ui->rbtnPlain, ui->rbtnOffs, ui->rbtnReltool}) {
        connect(button, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                onKindChanged();
        });
    }
    onKindChanged();
}

PointEdit::~PointEdit() = default;

QComboBox *PointEdit::combo() const
{
    return ui->cbxPoint;
}

void PointEdit::setPoints(const QStringList &names)
{
    if (offers(ui->cbxPoint, names))
        return;
    const QString chosen = pointName();
    {
        const QSignalBlocker blocker(ui->cbxPoint);
        ui->cbxPoint->clear();
        for (const QString &name : names)
            ui->cbxPoint->addItem(name, name);
        chooseFirstNamed(ui->cbxPoint);
        if (!chosen.isEmpty())
            choose(chosen);
    }
    if (pointName() != chosen)
        emit pointChanged();
}

QString PointEdit::pointName() const
{
    return ui->cbxPoint->currentData().toString();
}

bool PointEdit::choose(const QString &name)
{
    // An unknown point that an earlier line named.
    const int unknown = ui->cbxPoint->findData(true, unknownRole);
    int index = ui->cbxPoint->findData(name);
    const bool known = index >= 0 && index != unknown;
    if (index < 0) {
        index = ui->cbxPoint->count();
        ui->cbxPoint->addItem(name, name);
        ui->cbxPoint->setItemData(index, true, unknownRole);
    }
    ui->cbxPoint->setCurrentIndex(index);
    if (unknown >= 0 && unknown != index)
        ui->cbxPoint->removeItem(unknown);
    return known;
}

tl::PointExpression PointEdit::expression() const
{
    tl::PointExpression expression{kind(), pointName(), {}};
    const PoseValues &values = ui->wgtOffsets->values();
    for (int i = 0; i < tl::PointExpression::numberCount(expression.kind); ++i)
        expression.numbers.append(values[i]);
    return expression;
}

void PointEdit::setKindAndNumbers(const tl::PointExpression &expression)
{
    PoseValues values{};
    for (int i = 0; i < expression.numbers.size() && i < int(values.size()); ++i)
        values[i] = expression.numbers.at(i);
    ui->wgtOffsets->setValues(values);
    setKind(expression.kind);
    emit edited();
}

void PointEdit::setKind(Kind kind)
{
    switch (kind) {
    case Kind::Offs:
        ui->rbtnOffs->setChecked(true);
        break;
    case Kind::RelTool:
        ui->rbtnReltool->setChecked(true);
        break;
    default:
        ui->rbtnPlain->setChecked(true);
    }
}

void PointEdit::resetNumbers()
{
    ui->wgtOffsets->setValues({});
    emit edited();
}

PointEdit::Kind PointEdit::kind() const
{
    if (ui->rbtnOffs->isChecked())
        return Kind::Offs;
    return ui->rbtnReltool->isChecked() ? Kind::RelTool : Kind::Plain;
}

void PointEdit::onKindChanged()
{
    ui->wgtOffsets->setActiveBoxes(tl::PointExpression::numberCount(kind()));
    emit edited();
}

} // namespace welmo
