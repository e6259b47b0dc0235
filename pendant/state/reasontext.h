#pragma once

#include <QString>
#include <QVariantList>

namespace kelp {
class ModuleObject;
}

namespace welmo::pendant {

/// What went wrong and where: "line 7, arc lost at 98.9 mm"; 0 stands for no line.
QString reasonText(const QString &code, const QVariantList &arguments, int line);

/// The items of a list of maps, which are children in a data object that was read.
QVariantList itemsOf(const QVariant &list);

/// Why a command was refused, from its answer.
QString answerText(const kelp::ModuleObject &answer);

} // namespace welmo::pendant
