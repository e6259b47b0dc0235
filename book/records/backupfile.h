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

    QString cell; ///< whose; null where no controller told
    QString written; ///< ISO 8601 with zone
    QVariantMap values; ///< by node, below that by entry
    QVariantMap limits; ///< by welding file, as of toJson(Limits)

    QByteArray pack() const;
    /// Nothing, with a line, for what is damaged, no backup, or of a newer format.
    static std::optional<BackupFile> unpack(const QByteArray &bytes, QString *problem);

    /// Written as a whole or not at all; false with a line.
    bool save(const QString &file, QString *problem) const;
    static std::optional<BackupFile> load(const QString &file, QString *problem);
};

} // namespace welmo::book
