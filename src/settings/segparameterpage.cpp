#include "settings/segparameterpage.h"

#include <QVBoxLayout>

#include "settings/segparameterwidget.h"

SegParameterPage::SegParameterPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("seg parameter"), tr("Seg Parameter"), owner)
    , wgtSeg(new SegParameterWidget(wgt()))
{
    wgtSeg->setObjectName(QStringLiteral("wgtSeg"));
    auto *layout = new QVBoxLayout(wgt());
    layout->setContentsMargins(0, 0, 0, 0); // the editor has margins of its own
    layout->addWidget(wgtSeg);
}

void SegParameterPage::initPage()
{
    wgtSeg->init();
}
