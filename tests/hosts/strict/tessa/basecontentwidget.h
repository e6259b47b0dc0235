#pragma once

#include <QJsonValue>
#include <QString>
#include <QWidget>

namespace tessa {

class BaseContentWidget : public QWidget
{
    Q_OBJECT
public:
    explicit BaseContentWidget(QWidget *parent)
        : QWidget(parent)
    { }
    virtual void FillWith(const QString &line) = 0;
    virtual QString ToString() = 0;
    virtual QJsonValue ToJsonValue();
    virtual bool CheckInsert();
    virtual bool CheckReplace();
    virtual void RefreshProgramData();
    virtual QString GetLabel();
};

} // namespace tessa
