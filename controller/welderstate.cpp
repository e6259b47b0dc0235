#include "controller/welderstate.h"

#include <cmath>

#include "controller/fields.h"
#include "controller/names.h"
#include "controller/weld.h"
#include "controller/welder.h"

namespace controller {

namespace {

const QString currentKey = QStringLiteral("current");
const QString voltageKey = QStringLiteral("voltage");
const QString rateKey = QStringLiteral("rate");

double rounded(double value, double decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

QVariantMap merged(QVariantMap map, const QVariantMap &added)
{
    for (auto item = added.begin(); item != added.end(); ++item)
        map.insert(item.key(), item.value());
    return map;
}

QVariantMap differences(const QVariantMap &before, const QVariantMap &after)
{
    QVariantMap result;
    for (auto item = after.begin(); item != after.end(); ++item) {
        if (before.value(item.key()) != item.value())
            result.insert(item.key(), item.value());
    }
    return result;
}

} // namespace

WelderState::WelderState(Cell &cell, Registry &registry, const Welder &welder, const Weld &weld)
    : m_cell(cell)
    , m_welder(welder)
    , m_weld(weld)
{
    registry.addValue(names::welderState,
                      [this] { return Reply::with(merged(numbers(), words())); });
    registry.addValue(
        names::welderStateRate,
        [this] {
            return Reply::with(QVariantMap{{rateKey, m_rate}});
        },
        [this](const QVariant &payload) { return setRate(payload); });
}

Reply WelderState::start()
{
    m_told = merged(numbers(), words());
    return {};
}

bool WelderState::isBusy() const
{
    return m_weld.isBusy() || !differences(m_told, numbers()).isEmpty();
}

void WelderState::tick()
{
    QVariantMap news = differences(m_told, words());
    if (m_cell.now() - m_toldAt >= paceMs()) {
        const QVariantMap levels = numbers();
        news = merged(differences(m_told, levels), news);
        if (news.contains(currentKey) || news.contains(voltageKey)) {
            news.insert(currentKey, levels.value(currentKey));
            news.insert(voltageKey, levels.value(voltageKey));
        }
    }
    if (news.isEmpty())
        return;
    m_told = merged(m_told, news);
    m_toldAt = m_cell.now();
    m_cell.notify(names::welderState, news);
}

QVariantMap WelderState::words() const
{
    return {{QStringLiteral("state"), m_welder.stateWord()},
            {QStringLiteral("phase"), m_weld.phaseWord()},
            {QStringLiteral("welding_name"), m_weld.fileName()}};
}

QVariantMap WelderState::numbers() const
{
    const Arc &arc = m_weld.process().arc();
    return {{currentKey, rounded(arc.current(), 1)},
            {voltageKey, rounded(arc.voltage(), 1)},
            {QStringLiteral("welding_speed"), rounded(m_weld.torchSpeed(), 1)},
            {QStringLiteral("welding_time"), rounded(arc.minutes(), 3)},
            {QStringLiteral("welding_distance"), rounded(arc.distance(), 1)},
            {QStringLiteral("welding_wire_used"), rounded(arc.wireUsed(), 3)}};
}

Reply WelderState::setRate(const QVariant &payload)
{
    Reply wanted = checked(payload, {integer("rate", 10, 500)}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    m_rate = childAt(wanted.value, rateKey).toInt();
    m_cell.notify(names::welderStateRate, QVariantMap{{rateKey, m_rate}});
    return {};
}

} // namespace controller
