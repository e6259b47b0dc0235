#include "controller/core/alarms.h"

#include <QDateTime>
#include <algorithm>

#include "controller/core/fields.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString idKey = QStringLiteral("id");
const QString openKey = QStringLiteral("open");
const QString codeKey = QStringLiteral("code");
const QString argumentsKey = QStringLiteral("arguments");

QString storeKey(const QVariantMap &entry)
{
    return QStringLiteral("%1").arg(entry.value(idKey).toInt(), 10, 10, QLatin1Char('0'));
}

} // namespace

Alarms::Alarms(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    registry.addValue(names::alarms, [this] { return Reply::with(node()); });
    registry.addCommand(names::acknowledgeAlarms,
                        [this](const Request &request) { return acknowledge(request.payload); });
}

Reply Alarms::start()
{
    Reply stored = m_context.loadAll(names::alarms);
    const QVariantMap kept = stored.value.toMap(); // the map's order is that of the numbers
    for (const QVariant &entry : kept)
        m_entries.push_back(entry.toMap());
    if (!m_entries.empty())
        m_nextId = m_entries.back().value(idKey).toInt() + 1;
    return stored;
}

void Alarms::raise(const Reason &reason, const QString &file)
{
    const QVariantMap what{{codeKey, reason.code},
                           {argumentsKey, reason.arguments},
                           {QStringLiteral("line"), m_place.line}};
    m_ofRun.append(what);
    QVariantMap entry = what;
    entry.insert(idKey, m_nextId++);
    entry.insert(QStringLiteral("time"),
                 QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
    entry.insert(QStringLiteral("program"), m_place.program);
    entry.insert(QStringLiteral("file"), file);
    entry.insert(openKey, true);
    m_entries.push_back(entry);
    keep({entry});
}

bool Alarms::anyOpen() const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [](const QVariantMap &entry) { return entry.value(openKey).toBool(); });
}

bool Alarms::isOpen(const Reason &reason) const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [&reason](const QVariantMap &entry) {
        return entry.value(openKey).toBool() && entry.value(codeKey) == reason.code
            && entry.value(argumentsKey).toList() == reason.arguments;
    });
}

Reply Alarms::acknowledge(const QVariant &payload)
{
    const QVariant id = childAt(payload, idKey);
    std::vector<QVariantMap> changed;
    for (QVariantMap &entry : m_entries) {
        if (entry.value(openKey).toBool() && (!id.isValid() || entry.value(idKey) == id)) {
            entry.insert(openKey, false);
            changed.push_back(entry);
        }
    }
    if (!changed.empty())
        keep(changed);
    return {};
}

QVariantMap Alarms::node() const
{
    QVariantList list;
    for (const QVariantMap &entry : m_entries)
        list.append(entry);
    return {{QStringLiteral("entries"), list}};
}

// A failed save is ignored: a full disk must neither hide an alarm nor keep one on the screen.
void Alarms::keep(const std::vector<QVariantMap> &changed)
{
    QVector<Store::Change> changes;
    for (const QVariantMap &entry : changed)
        changes.append({names::alarms, storeKey(entry), entry});
    while (m_entries.size() > capacity) {
        changes.append({names::alarms, storeKey(m_entries.front()), {}});
        m_entries.erase(m_entries.begin());
    }
    m_context.save(changes);
    m_context.notify(names::alarms, node());
}

} // namespace welmo::controller
