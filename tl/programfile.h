#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace welmo::tl {

constexpr int longestLine = 64 * 1024; ///< bytes; far above what anybody writes

/// The file's bytes, or nothing with the reason in @p problem: also for a line above longestLine,
/// which no screen could show in good time.
std::optional<QByteArray> readProgram(const QString &name, QString *problem);

/// Replaces the file as a whole; if that fails it is as it was, with the reason in @p problem.
bool writeProgram(const QString &name, const QByteArray &bytes, QString *problem);

} // namespace welmo::tl
