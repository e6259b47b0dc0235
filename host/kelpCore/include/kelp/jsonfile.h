#pragma once

#include <QJsonDocument>
#include <QString>

namespace kelp {

/// Reads a JSON file or resource, with or without a byte-order mark. On failure the document is
/// null and @p error holds one line: file, position and reason.
QJsonDocument readJsonFile(const QString &path, QString *error);

/// Writes the file completely or not at all: the old file stays until the new one is on disk.
/// False, with a line in @p error, if it could not be written.
bool writeJsonFile(const QString &path, const QJsonDocument &document, QString *error);

} // namespace kelp
