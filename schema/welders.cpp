#include "schema/welders.h"

#include <QCoreApplication>

namespace welmo::schema {

namespace {

const char *const ethercat = QT_TRANSLATE_NOOP("Welders", "Ethercat");
const char *const aotai = QT_TRANSLATE_NOOP("Welders", "Aotai");
const char *const rl = QT_TRANSLATE_NOOP("Welders", "RL/RPL");
const char *const rp = QT_TRANSLATE_NOOP("Welders", "RP/RPH");

QString text(const char *word)
{
    return QString::fromLatin1(word);
}

QStringList texts(std::initializer_list<const char *> words)
{
    QStringList list;
    for (const char *word : words)
        list.append(text(word));
    return list;
}

} // namespace

const QVector<Welder> &welders()
{
    static const QVector<Welder> all{
        {text(ethercat),
         text(aotai),
         text(rl),
         {350, 500, 630, 800},
         texts({"Flat Characteristic", "Low Spatter", "DC Spot Welding", "Deep Penetration",
                "Low Spatter Spot Welding", "ASMT", "ASMT Spot Welding", "Job"})},
        {text(ethercat),
         text(aotai),
         text(rp),
         {350, 500, 630, 800},
         texts({"Flat Characteristic", "Low Spatter", "Pulse", "Double Pulse", "DC Spot Welding",
                "Pulsed Spot Welding", "Deep Penetration", "Fast Pulse", "Job"})},
    };
    return all;
}

QString shownWelderText(const QString &text)
{
    return QCoreApplication::translate("Welders", text.toUtf8().constData());
}

WelderSettingSet::WelderSettingSet()
    : Set(QStringLiteral("device"), QStringLiteral("welder_setting"))
    , protocol(*this, "protocol", welders().first().protocol)
    , brand(*this, "mfr", welders().first().brand)
    , type(*this, "model", welders().first().type)
    , ratedCurrent(*this, "current_type", welders().first().currents.first(), {1, 5000},
                   Unit::Ampere)
{ }

const WelderSettingSet &welderSetting()
{
    static const WelderSettingSet set;
    return set;
}

} // namespace welmo::schema
