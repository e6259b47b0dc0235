#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace welmo::tl {

constexpr int longestLine = 64 * 1024; ///< bytes; far above what people write

/// The file's bytes; on failure nothing, with the reason in @p problem. A line above longestLine is
/// a failure too, since showing it would take too long.
std::optional<QByteArray> readProgram(const QString &name, QString *problem);

/// Replaces the file as a whole; on failure the old one stays, with the reason in @p problem.
bool writeProgram(const QString &name, const QByteArray &bytes, QString *problem);

} // namespace welmo::tl
