#pragma once

#include "page/basesubpage.h"

/// The sub-page "Welding Options".
class WeldingOptionsPage : public BaseSubPage
{
    Q_OBJECT
public:
    WeldingOptionsPage(QWidget *parent, QObject *owner);
};
