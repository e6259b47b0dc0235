#pragma once

#include "page/basesubpage.h"

/// The sub-page "Device Setting".
class DevicesSettingPage : public BaseSubPage
{
    Q_OBJECT
public:
    DevicesSettingPage(QWidget *parent, QObject *owner);
};
