#include "settings/weldingoptionspage.h"

WeldingOptionsPage::WeldingOptionsPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("weldingOptions"), tr("Welding Options"), owner)
{ }
