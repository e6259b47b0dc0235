#include "settings/weavefunctionpage.h"

WeaveFunctionPage::WeaveFunctionPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("weaveFunction"), tr("Weave Function"), owner)
{ }
