#pragma once

#include <QHash>
#include <QList>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

namespace tessa {

class BaseContentWidget;

/// The instructions that the program editor knows. Packages fill the tables directly when they are
/// initialised, and do not remove entries.
class TlManager
{
public:
    using WidgetCreator = std::function<BaseContentWidget *(QWidget *parent)>;

    /// The one manager of the process, made on first use.
    static TlManager *getTlManager();
    /// Empties the tables, since packages' entries end with their host.
    void clear() { *this = TlManager(); }

    QStringList instructionNames; ///< in registration order
    QList<QPair<QString, QString>> instructionGroups; ///< shown label, group key
    QHash<QString, QStringList> groupMembers; ///< group key to instruction names
    QHash<QString, QString> syntaxTemplates;
    QHash<QString, QString> instructionTexts;
    QSet<QString> instructionSet;
    QHash<QString, QString> cTexts;
    QHash<QString, QString> sTexts;
    QHash<QString, WidgetCreator> propertyWidgetCreators;
    QHash<QString, WidgetCreator> insertWidgetCreators;

private:
    TlManager() = default;
};

} // namespace tessa
