#pragma once

#include "instructions/forms/instructionform.h"

class SegParameterWidget;

class SegOnPropertyWidget : public welmo::PropertyForm
{
    Q_OBJECT
public:
    explicit SegOnPropertyWidget(QWidget *parent);
    void FillWith(const QString &line) override;
    QString ToString() override;

private:
    SegParameterWidget *wgtSeg;
};
