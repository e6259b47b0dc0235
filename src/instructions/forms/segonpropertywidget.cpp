#include "instructions/forms/segonpropertywidget.h"

#include <QVBoxLayout>

#include "settings/segparameterwidget.h"
#include "tl/fileline.h"

using namespace welmo::tl;

SegOnPropertyWidget::SegOnPropertyWidget(QWidget *parent)
    : PropertyForm(Instruction::SegOn, parent)
    , wgtSeg(new SegParameterWidget(this))
{
    wgtSeg->setObjectName(QStringLiteral("wgtSeg"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(wgtSeg);
    wgtSeg->init();
}

void SegOnPropertyWidget::FillWith(const QString &line)
{
    const FileLine parsed = parseFileLine(instruction(), line);
    if (parsed.names.isEmpty())
        report(parsed.problems);
    else
        wgtSeg->setFileNumber(parsed.names.front()); // which reports a name that is none itself
}

QString SegOnPropertyWidget::ToString()
{
    return formatFileLine(instruction(), {wgtSeg->getFileNumber()});
}
