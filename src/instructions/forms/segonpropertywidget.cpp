#include "instructions/forms/segonpropertywidget.h"

#include <QVBoxLayout>

#include "settings/segparameterwidget.h"
#include "tl/lineformat.h"

using namespace welmo::tl;

SegOnPropertyWidget::SegOnPropertyWidget(QWidget *parent)
    : PropertyForm(Word::SegOn, parent)
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
    const ParsedLine parsed = read(line);
    if (parsed.names.isEmpty())
        report(parsed.problems);
    else
        wgtSeg->setFileNumber(parsed.names.front()); // reports a name that is wrong
}

QString SegOnPropertyWidget::ToString()
{
    return formatFileLine(word(), {wgtSeg->getFileNumber()});
}
