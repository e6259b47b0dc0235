#pragma once

#include <QByteArray>
#include <QVariant>
#include <optional>

namespace welmo::controller {

/// @p value as JSON text: numbers, booleans, texts, lists and maps of them, and "nothing".
QByteArray toJson(const QVariant &value);

/// The approximate size of that text in bytes, without making it.
int sizeOf(const QVariant &value);

/// The inverse; empty if the text is not such JSON. JSON has one kind of number: one without a
/// fraction becomes an int (or a qlonglong if it does not fit), any other a double. A double 3.0 is
/// therefore read back as the int 3, which compares equal.
std::optional<QVariant> fromJson(const QByteArray &json);

/// True if an object in the text has the same key twice. To be asked before text from outside is
/// parsed: parsers differ in which value they take, and Qt's leaks a list or map that it replaces.
bool repeatsKey(const QByteArray &json);

/// True if JSON can carry @p value without loss: finite numbers, booleans, texts and nothing, in
/// lists and maps of a limited depth and length.
bool isPlain(const QVariant &value);

} // namespace welmo::controller
