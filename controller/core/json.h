#pragma once

#include <QByteArray>
#include <QVariant>
#include <optional>

namespace welmo::controller {

/// @p value as JSON text: numbers, booleans, texts, lists and maps of them, and "nothing".
QByteArray toJson(const QVariant &value);

/// About how many bytes that text has, without making it.
int sizeOf(const QVariant &value);

/// The inverse; nothing when the text is no JSON of ours. JSON knows one kind of number: one
/// without a fraction comes back as an int (as a qlonglong when it does not fit), any other as a
/// double. A double 3.0 is therefore read as the int 3, which compares equal.
std::optional<QVariant> fromJson(const QByteArray &json);

/// True when an object in the text has a key twice: every reader takes another of them to count,
/// and Qt's never frees a list or map that it replaces. For what others have written, before it is
/// read.
bool repeatsKey(const QByteArray &json);

/// True when @p value consists only of what JSON can carry without loss: finite numbers, booleans,
/// texts and nothing, in lists and maps of a sane depth and length.
bool isPlain(const QVariant &value);

} // namespace welmo::controller
