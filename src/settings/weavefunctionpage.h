#pragma once

#include "page/basesubpage.h"

/// The sub-page "Weave Function".
class WeaveFunctionPage : public BaseSubPage
{
    Q_OBJECT
public:
    WeaveFunctionPage(QWidget *parent, QObject *owner);
};
