#pragma once

#include <QString>
#include <QVariantList>

namespace welmo::schema {

/// The controller's reason, as of an alarm, in the language of the pendant; an unknown code is
/// returned as it is.
QString reasonText(const QString &code, const QVariantList &arguments);

/// The text of a controller's or link's result code, for an answer without a reason.
QString codeText(int code);

} // namespace welmo::schema
