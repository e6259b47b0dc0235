#include "settings/devicessettingpage.h"

DevicesSettingPage::DevicesSettingPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("setting"), tr("Device Setting"), owner)
{ }
