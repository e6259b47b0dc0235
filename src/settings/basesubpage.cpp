#include "settings/basesubpage.h"

#include <QDynamicPropertyChangeEvent>

#include "data/editmarks.h"

BaseSubPage::BaseSubPage(QWidget *parent, const QString &name, const QString &title, QObject *owner)
    : BasePage(name, title, owner)
    , m_wgt(new QWidget(parent))
{ }

BaseSubPage::~BaseSubPage()
{
    delete m_wgt;
}

bool BaseSubPage::isEdited() const
{
    return property(welmo::editedFormsProperty).toInt() > 0;
}

bool BaseSubPage::event(QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange
        && static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName()
            == welmo::editedFormsProperty)
        emit editedChanged();
    return BasePage::event(event);
}
