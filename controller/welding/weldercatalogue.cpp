#include "controller/welding/weldercatalogue.h"

#include <algorithm>

namespace welmo::controller {

namespace {

// The open-circuit voltage grows with the machine: 35 V at 350 A up to 54 V at 800 A.
double maxSeparateVoltage(int ratedCurrent)
{
    return 20.0 + 0.0425 * ratedCurrent;
}

QVariantList textsOf(const schema::ChoiceTable &table)
{
    QVariantList texts;
    for (const auto &choice : table.choices())
        texts.append(QString::fromLatin1(choice.text));
    return texts;
}

QVariantMap rangesUpTo(double unifiedPercent, double separateVolts)
{
    return {{QStringLiteral("unified"), QVariantList{0.0, unifiedPercent}},
            {QStringLiteral("separate"), QVariantList{0.0, separateVolts}}};
}

} // namespace

const schema::Welder *findWelder(const QString &protocol, const QString &brand, const QString &type)
{
    const auto &all = schema::welders();
    const auto found = std::find_if(all.begin(), all.end(), [&](const schema::Welder &each) {
        return each.protocol == protocol && each.brand == brand && each.type == type;
    });
    return found == all.end() ? nullptr : &*found;
}

QVariantMap deviceParamOf(const schema::Welder &welder, int ratedCurrent)
{
    const double volts = qRound(maxSeparateVoltage(ratedCurrent));
    // The crater is filled with less voltage than the seam is welded with.
    const double arcOffVolts = qRound(0.9 * volts);
    return {{QStringLiteral("work_mode"), QVariant(welder.workModes).toList()},
            {QStringLiteral("current_mode"), textsOf(schema::choices::currentModes())},
            {QStringLiteral("voltage_mode"), textsOf(schema::choices::voltageModes())},
            {QStringLiteral("voltage_range"), rangesUpTo(200, volts)},
            {QStringLiteral("arcoff_voltage_range"), rangesUpTo(200, arcOffVolts)}};
}

} // namespace welmo::controller
