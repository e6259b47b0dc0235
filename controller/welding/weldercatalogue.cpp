#include "controller/welding/weldercatalogue.h"

#include <algorithm>

namespace welmo::controller {

namespace {

const QVector<WelderModel> &models()
{
    static const QVector<WelderModel> all = {
        {QStringLiteral("Ethercat"),
         QStringLiteral("Aotai"),
         QStringLiteral("RL/RPL"),
         {QStringLiteral("Flat Characteristic"), QStringLiteral("Low Spatter"),
          QStringLiteral("DC Spot Welding"), QStringLiteral("Deep Penetration"),
          QStringLiteral("Low Spatter Spot Welding"), QStringLiteral("ASMT"),
          QStringLiteral("ASMT Spot Welding"), QStringLiteral("Job")}},
        {QStringLiteral("Ethercat"),
         QStringLiteral("Aotai"),
         QStringLiteral("RP/RPH"),
         {QStringLiteral("Flat Characteristic"), QStringLiteral("Low Spatter"),
          QStringLiteral("Pulse"), QStringLiteral("Double Pulse"),
          QStringLiteral("DC Spot Welding"), QStringLiteral("Pulsed Spot Welding"),
          QStringLiteral("Deep Penetration"), QStringLiteral("Fast Pulse"), QStringLiteral("Job")}},
    };
    return all;
}

// The open arc's voltage grows with the machine: 35 V at 350 A up to 54 V at 800 A.
double maxSeparateVoltage(int ratedCurrent)
{
    return 20.0 + 0.0425 * ratedCurrent;
}

QVariantMap rangesUpTo(double unifiedPercent, double separateVolts)
{
    return {{QStringLiteral("unified"), QVariantList{0.0, unifiedPercent}},
            {QStringLiteral("separate"), QVariantList{0.0, separateVolts}}};
}

} // namespace

const WelderModel *findWelder(const QString &protocol, const QString &maker, const QString &model)
{
    const auto found = std::find_if(models().begin(), models().end(), [&](const WelderModel &each) {
        return each.protocol == protocol && each.maker == maker && each.model == model;
    });
    return found == models().end() ? nullptr : &*found;
}

const WelderModel &firstWelder()
{
    return models().first();
}

const QVector<int> &ratedCurrents()
{
    static const QVector<int> currents{350, 500, 630, 800};
    return currents;
}

QVariantMap deviceParamOf(const WelderModel &model, int ratedCurrent)
{
    const QStringList currentModes{QStringLiteral("Current"), QStringLiteral("Wire Feed")};
    const QStringList voltageModes{QStringLiteral("Unified"), QStringLiteral("Separate")};
    const double volts = qRound(maxSeparateVoltage(ratedCurrent));
    // The crater is filled with less than the seam is welded with.
    const double arcOffVolts = qRound(0.9 * volts);
    return {{QStringLiteral("work_mode"), QVariant(model.workModes).toList()},
            {QStringLiteral("current_mode"), QVariant(currentModes).toList()},
            {QStringLiteral("voltage_mode"), QVariant(voltageModes).toList()},
            {QStringLiteral("voltage_range"), rangesUpTo(200, volts)},
            {QStringLiteral("arcoff_voltage_range"), rangesUpTo(200, arcOffVolts)}};
}

} // namespace welmo::controller
