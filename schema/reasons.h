#pragma once

#include <QString>
#include <QVariantList>

namespace welmo::schema {

/// The controller's reason, as of an alarm, in the language of the pendant; of an unknown code, the
/// code itself.
QString reasonText(const QString &code, const QVariantList &arguments);

/// What the controller's or the link's result code says when no reason came with it.
QString codeText(int code);

} // namespace welmo::schema
