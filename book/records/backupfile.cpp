#include "book/records/backupfile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QtEndian>

namespace welmo::book {

namespace {

const QString formatKey = QStringLiteral("format");
const QString checksumKey = QStringLiteral("checksum");
const QString contentKey = QStringLiteral("content");
const QString cellKey = QStringLiteral("cell");
const QString writtenKey = QStringLiteral("written");
const QString valuesKey = QStringLiteral("values");
const QString limitsKey = QStringLiteral("limits");

constexpr qint64 longest = qint64(64) * 1024 * 1024; // a file that claims to be larger is no backup

QString checksumOf(const QJsonObject &content)
{
    const QByteArray json = QJsonDocument(content).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QCryptographicHash::hash(json, QCryptographicHash::Sha256).toHex());
}

// The first four bytes are the unpacked size.
QByteArray unzipped(const QByteArray &bytes)
{
    const bool sane = bytes.size() > 4 && qFromBigEndian<quint32>(bytes.constData()) < longest;
    return sane ? qUncompress(bytes) : QByteArray();
}

} // namespace

QByteArray BackupFile::pack() const
{
    const QJsonObject content = QJsonObject::fromVariantMap(
        {{cellKey, cell}, {writtenKey, written}, {valuesKey, values}, {limitsKey, limits}});
    const QJsonObject whole{
        {formatKey, format}, {checksumKey, checksumOf(content)}, {contentKey, content}};
    return qCompress(QJsonDocument(whole).toJson(QJsonDocument::Compact));
}

std::optional<BackupFile> BackupFile::unpack(const QByteArray &bytes, QString *problem)
{
    const QJsonObject whole = QJsonDocument::fromJson(unzipped(bytes)).object();
    const int written = whole.value(formatKey).toInt();
    const QJsonObject content = whole.value(contentKey).toObject();
    if (written > format)
        *problem =
            tr("was written by a newer version (format %1, known is %2)").arg(written).arg(format);
    else if (written < 1 || whole.value(checksumKey).toString() != checksumOf(content))
        *problem = tr("is damaged, or no backup");
    if (!problem->isEmpty())
        return {};
    BackupFile file;
    file.cell = content.value(cellKey).toString();
    file.written = content.value(writtenKey).toString();
    file.values = content.value(valuesKey).toObject().toVariantMap();
    file.limits = content.value(limitsKey).toObject().toVariantMap();
    return file;
}

bool BackupFile::save(const QString &file, QString *problem) const
{
    const QByteArray bytes = pack();
    QDir().mkpath(QFileInfo(file).absolutePath());
    QSaveFile out(file);
    if (out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.commit())
        return true;
    *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), out.errorString());
    return false;
}

std::optional<BackupFile> BackupFile::load(const QString &file, QString *problem)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly))
        *problem = in.errorString();
    const auto backup = problem->isEmpty() ? unpack(in.read(longest), problem) : std::nullopt;
    if (!backup)
        *problem = QStringLiteral("%1 %2").arg(QFileInfo(file).fileName(), *problem);
    return backup;
}

} // namespace welmo::book
