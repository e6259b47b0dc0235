#pragma once

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
    virtual bool CheckInsert();
    virtual bool CheckReplace();
};

} // namespace tessa
