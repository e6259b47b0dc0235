#pragma once

#include "instructions/forms/instructionform.h"

class WeaveWidget;

class WeaveOnPropertyWidget : public welmo::PropertyForm
{
    Q_OBJECT
public:
    explicit WeaveOnPropertyWidget(QWidget *parent);
    void FillWith(const QString &line) override;
    QString ToString() override;

private:
    WeaveWidget *wgtWeaveData;
};
