#include "settings/basesubpage.h"

BaseSubPage::BaseSubPage(QWidget *parent, const QString &name, const QString &title, QObject *owner)
    : BasePage(name, title, owner)
    , m_wgt(new QWidget(parent))
{ }

BaseSubPage::~BaseSubPage()
{
    delete m_wgt;
}
