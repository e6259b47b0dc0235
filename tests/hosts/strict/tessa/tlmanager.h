#pragma once

#include <QHash>
#include <QStringList>
#include <functional>

class QWidget;

namespace tessa {

class BaseContentWidget;

class TlManager
{
public:
    static TlManager *getTlManager();

    QStringList instructionNames;
    QList<QPair<QString, QString>> instructionGroups;
    QHash<QString, QStringList> groupMembers;
    QHash<QString, QString> syntaxTemplates;
    QHash<QString, QString> instructionTexts;
    QHash<QString, QString> cTexts;
    QHash<QString, QString> sTexts;
    QHash<QString, std::function<BaseContentWidget *(QWidget *)>> propertyWidgetCreators;
    QHash<QString, std::function<BaseContentWidget *(QWidget *)>> insertWidgetCreators;
};

} // namespace tessa
