#pragma once

#include <QHash>
#include <QString>
#include <QVariantList>

namespace welmo::schema {

/// The controller's reason, as of an alarm, in the language of the pendant; an unknown code is
/// returned as it is.
QString reasonText(const QString &code, const QVariantList &arguments);

/// The texts by code, in English; translations have the context "Reasons", and %1 and so on stand
/// for the arguments in their order.
const QHash<QString, const char *> &reasonTexts();

/// The text of a controller's or link's result code, for an answer without a reason.
QString codeText(int code);

} // namespace welmo::schema
