#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// The picture of the house: which folder may include what.
namespace arrows {

struct Rule
{
    enum class Qt { Core, Any };

    QString folder; ///< with everything below it that has no rule of its own
    Qt qt;
    QStringList mayInclude; ///< folders with a slash at their end, or single headers
};

const QVector<Rule> &rules();

/// The headers and sources below @p root that no rule speaks of; tests and benchmarks may include
/// whom they like.
QStringList filesWithoutRule(const QString &root);

/// The includes in @p folder below @p root that its rule does not allow, one line each.
QStringList violations(const QString &root, const QString &folder);

} // namespace arrows
