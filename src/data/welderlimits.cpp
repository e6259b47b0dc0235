#include "data/welderlimits.h"

#include "data/arcweldservice.h"
#include "schema/names.h"

namespace welmo {

namespace {

QStringList texts(const kelp::ModuleObject *answer, const QString &key)
{
    QStringList list;
    for (const QVariant &item : answer->r(key)->getList())
        list.append(item.toString());
    return list;
}

// Two numbers, minimum first; any other answer counts as none.
std::optional<schema::Range> range(const kelp::ModuleObject *answer, const QString &key)
{
    const QVariantList pair = answer->r(key)->getList();
    bool low = false;
    bool high = false;
    const schema::Range result{pair.value(0).toDouble(&low), pair.value(1).toDouble(&high)};
    const bool told = pair.size() == 2 && low && high && result.minimum <= result.maximum;
    return told ? std::optional(result) : std::nullopt;
}

VoltageRanges ranges(const kelp::ModuleObject *answer, const QString &key)
{
    return {range(answer, key + QLatin1String(".unified")),
            range(answer, key + QLatin1String(".separate"))};
}

} // namespace

std::optional<WelderLimits> WelderLimits::read(QObject *sender)
{
    const auto answer = xservice()->get(sender, names::deviceParam);
    if (arcweld::readFailed(answer) || answer->cmobjCount() == 0)
        return std::nullopt;
    return WelderLimits{texts(answer.get(), QStringLiteral("work_mode")),
                        texts(answer.get(), QStringLiteral("current_mode")),
                        texts(answer.get(), QStringLiteral("voltage_mode")),
                        ranges(answer.get(), QStringLiteral("voltage_range")),
                        ranges(answer.get(), QStringLiteral("arcoff_voltage_range"))};
}

} // namespace welmo
