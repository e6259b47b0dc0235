#include "book/records/limitsjson.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace welmo::book {

namespace {

const QString lowKey = QStringLiteral("low");
const QString highKey = QStringLiteral("high");

struct Number
{
    QString key;
    int Limits::*member;
};

const QVector<Number> &numbers()
{
    static const QVector<Number> rows{{QStringLiteral("mask_start"), &Limits::maskStart},
                                      {QStringLiteral("mask_end"), &Limits::maskEnd},
                                      {QStringLiteral("learnt_from"), &Limits::learntFrom}};
    return rows;
}

std::optional<double> end(const QJsonObject &band, const QString &key)
{
    const QJsonValue value = band.value(key);
    return value.isDouble() ? std::optional<double>(value.toDouble()) : std::nullopt;
}

} // namespace

QByteArray toJson(const Limits &limits)
{
    QJsonObject all;
    for (const BandRow &row : bandRows()) {
        QJsonObject band;
        if (const auto &low = (limits.*row.band).low)
            band.insert(lowKey, *low);
        if (const auto &high = (limits.*row.band).high)
            band.insert(highKey, *high);
        if (!band.isEmpty())
            all.insert(row.name, band);
    }
    for (const Number &number : numbers())
        all.insert(number.key, limits.*number.member);
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

Limits limitsFromJson(const QString &file, const QByteArray &json)
{
    const QJsonObject all = QJsonDocument::fromJson(json).object();
    Limits limits;
    limits.file = file;
    for (const BandRow &row : bandRows()) {
        const QJsonObject band = all.value(row.name).toObject();
        limits.*row.band = {end(band, lowKey), end(band, highKey)};
    }
    for (const Number &number : numbers())
        limits.*number.member = all.value(number.key).toInt(limits.*number.member);
    return limits;
}

} // namespace welmo::book
