#pragma once

#include <QCoreApplication>
#include <QVariantMap>
#include <optional>

namespace welmo::book {

/// A cell's data as one file: JSON with the number of its format and a checksum over the rest,
/// compressed as qCompress() does.
class BackupFile
{
    Q_DECLARE_TR_FUNCTIONS(welmo::book::BackupFile)
public:
    static constexpr int format = 1;

    QString cell; ///< the cell's name; null if the controller has none
    QString written; ///< ISO 8601 with zone
    QVariantMap values; ///< by node, below that by entry
    QVariantMap limits; ///< by welding file, see toJson(Limits)

    QByteArray pack() const;
    /// Empty, with a line in @p problem, if the bytes are damaged, no backup, or of a newer format.
    static std::optional<BackupFile> unpack(const QByteArray &bytes, QString *problem);

    /// Writes the file completely or not at all; false, with a line in @p problem, on failure.
    bool save(const QString &file, QString *problem) const;
    static std::optional<BackupFile> load(const QString &file, QString *problem);
};

} // namespace welmo::book
