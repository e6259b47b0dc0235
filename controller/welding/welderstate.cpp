#include "controller/welding/welderstate.h"

#include <cmath>
#include <iterator>

#include "controller/core/fields.h"
#include "controller/welding/weld.h"
#include "controller/welding/welder.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

// In the order of the readings. The seam's program, line and user are in the node of the phase,
// since of two nodes that change together a pendant may be notified of either first.
const QString wordKeys[]{QStringLiteral("state"),        QStringLiteral("phase"),
                         QStringLiteral("welding_name"), QStringLiteral("program"),
                         QStringLiteral("line"),         QStringLiteral("user")};
const QString numberKeys[]{QStringLiteral("current"),          QStringLiteral("voltage"),
                           QStringLiteral("welding_speed"),    QStringLiteral("welding_time"),
                           QStringLiteral("welding_distance"), QStringLiteral("welding_wire_used"),
                           QStringLiteral("set_current"),      QStringLiteral("set_voltage"),
                           QStringLiteral("set_speed")};
constexpr int current = 0;
constexpr int voltage = 1;
const QString rateKey = QStringLiteral("rate");

double rounded(double value, double decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

template<typename Keys, typename Readings>
void insertAll(QVariantMap &map, const Keys &keys, const Readings &readings)
{
    for (size_t i = 0; i < std::size(keys); ++i)
        map.insert(keys[i], readings[i]);
}

// Inserts each value that differs from the last notification, and remembers it.
template<typename Keys, typename Readings>
bool takeChanges(QVariantMap &map, const Keys &keys, Readings &told, const Readings &readings)
{
    if (told == readings)
        return false;
    for (size_t i = 0; i < std::size(keys); ++i) {
        if (told[i] != readings[i])
            map.insert(keys[i], readings[i]);
    }
    told = readings;
    return true;
}

} // namespace

WelderState::WelderState(ControllerContext &context, Registry &registry, const Welder &welder,
                         const Weld &weld)
    : m_context(context)
    , m_welder(welder)
    , m_weld(weld)
{
    registry.addValue(names::welderState, [this] {
        QVariantMap all;
        insertAll(all, wordKeys, words());
        insertAll(all, numberKeys, numbers());
        return Reply::with(all);
    });
    registry.addValue(
        names::welderStateRate,
        [this] {
            return Reply::with(QVariantMap{{rateKey, m_rate}});
        },
        [this](const QVariant &payload) { return setRate(payload); });
}

Reply WelderState::start()
{
    m_toldWords = words();
    m_toldNumbers = numbers();
    return {};
}

bool WelderState::isBusy() const
{
    return m_weld.isBusy() || m_toldNumbers != numbers();
}

void WelderState::tick()
{
    QVariantMap news;
    takeChanges(news, wordKeys, m_toldWords, words());
    if (m_context.now() - m_toldAt >= paceMs()
        && takeChanges(news, numberKeys, m_toldNumbers, numbers()))
        completePair(news);
    if (news.isEmpty())
        return;
    m_toldAt = m_context.now();
    m_context.notify(names::welderState, news);
}

void WelderState::completePair(QVariantMap &news) const
{
    const QString &currentKey = numberKeys[current];
    const QString &voltageKey = numberKeys[voltage];
    if (!news.contains(currentKey) && !news.contains(voltageKey))
        return;
    news.insert(currentKey, m_toldNumbers[current]);
    news.insert(voltageKey, m_toldNumbers[voltage]);
}

WelderState::Words WelderState::words() const
{
    const ProgramPlace &place = m_weld.seamPlace();
    return {m_welder.stateWord(), m_weld.phaseWord(), m_weld.fileName(),
            place.program,        place.line,         place.user};
}

WelderState::Numbers WelderState::numbers() const
{
    const Arc &arc = m_weld.process().arc();
    const Setpoint set = m_weld.setpoint();
    return {rounded(arc.current(), 1), rounded(arc.voltage(), 1),  rounded(m_weld.torchSpeed(), 1),
            rounded(arc.minutes(), 3), rounded(arc.distance(), 1), rounded(arc.wireUsed(), 3),
            rounded(set.current, 1),   rounded(set.voltage, 1),    rounded(m_weld.seamSpeed(), 1)};
}

Reply WelderState::setRate(const QVariant &payload)
{
    Reply wanted = checked(payload, {integer("rate", 10, 500)}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    m_rate = childAt(wanted.value, rateKey).toInt();
    m_context.notify(names::welderStateRate, QVariantMap{{rateKey, m_rate}});
    return {};
}

} // namespace welmo::controller
