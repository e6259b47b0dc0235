#include "tessa/basecontentwidget.h"

namespace tessa {

QJsonValue BaseContentWidget::ToJsonValue()
{
    return QJsonValue(QJsonValue::Null);
}

bool BaseContentWidget::CheckInsert()
{
    return true;
}

bool BaseContentWidget::CheckReplace()
{
    return CheckInsert();
}

void BaseContentWidget::RefreshProgramData() { }

QString BaseContentWidget::GetLabel()
{
    return {};
}

} // namespace tessa
