#pragma once

#include <QWidget>

namespace pando {

class BModule;

class CenterWidget : public QWidget
{
public:
    void addPage(QObject *owner, const QString &key, QWidget *page);
};

class ExpandSideBar : public QWidget
{
public:
    void addPage(QObject *owner, const QString &key, QWidget *page);
    void switchTo(const QString &key);
};

class StatusBar : public QWidget
{
public:
    void addBeforeItem(QObject *owner, const QString &key, const QString &before, QWidget *item);
};

} // namespace pando

pando::CenterWidget *instantiatedCenterWidget(pando::BModule *module);
pando::ExpandSideBar *instantiatedRightExpandSideWidget(pando::BModule *module);
