#include "pendant/state/alarms.h"

#include <QCoreApplication>
#include <algorithm>

#include "pendant/state/reasontext.h"
#include "schema/names.h"
#include "tessa/managerhelper.h"

namespace welmo::pendant {

namespace {

const QString entriesKey = QStringLiteral("entries");

Alarm alarmFrom(const QVariantMap &map)
{
    Alarm alarm;
    alarm.id = map.value(QStringLiteral("id")).toInt();
    alarm.code = map.value(QStringLiteral("code")).toString();
    alarm.arguments = map.value(QStringLiteral("arguments")).toList();
    alarm.time =
        QDateTime::fromString(map.value(QStringLiteral("time")).toString(), Qt::ISODateWithMs)
            .toLocalTime();
    alarm.program = map.value(QStringLiteral("program")).toString();
    alarm.line = map.value(QStringLiteral("line")).toInt();
    alarm.file = map.value(QStringLiteral("file")).toString();
    alarm.open = map.value(QStringLiteral("open")).toBool();
    return alarm;
}

} // namespace

QString Alarm::text() const
{
    const QString what = reasonText(code, arguments, line);
    // Translated as well, so that the message log can translate the whole text again.
    const QString where = program.isEmpty()
        ? what
        : QCoreApplication::translate("Reasons", "%1, %2").arg(program, what);
    return file.isEmpty() ? where
                          : QCoreApplication::translate("Reasons", "%1 (%2)").arg(where, file);
}

AlarmList::AlarmList(XService *service, tessa::ManagerHelper *helper, QObject *parent)
    : QObject(parent)
    , m_service(service)
    , m_helper(helper)
{
    setObjectName(QStringLiteral("Controller"));
    connect(service->watchNode(names::alarms), &kelp::ModuleObject::changed, this,
            [this](const QVariant &values) {
                const QVariantMap map = values.toMap();
                if (map.contains(entriesKey))
                    take(map.value(entriesKey).toList());
            });
    connect(service, &XService::cameUp, this, &AlarmList::reload);
}

void AlarmList::reload()
{
    m_service->watch(this, names::alarms, true);
    const auto answer = m_service->get(this, names::alarms);
    if (answer->getInt(0) == 0)
        take(itemsOf(answer->toVariant().toMap().value(entriesKey)));
}

void AlarmList::take(const QVariantList &entries)
{
    const bool isFirst = m_logged < 0;
    m_all.clear();
    for (const QVariant &entry : entries)
        m_all.append(alarmFrom(entry.toMap()));
    std::sort(m_all.begin(), m_all.end(),
              [](const Alarm &a, const Alarm &b) { return a.id < b.id; });
    for (const Alarm &alarm : qAsConst(m_all)) {
        if (!isFirst && alarm.id > m_logged)
            log(alarm);
    }
    m_logged = std::max(m_logged, m_all.isEmpty() ? 0 : m_all.last().id);
    emit changed();
}

void AlarmList::log(const Alarm &alarm)
{
    m_helper->throwLog(this, QStringLiteral("error"), alarm.text());
}

QVector<Alarm> AlarmList::open() const
{
    QVector<Alarm> result;
    std::copy_if(m_all.begin(), m_all.end(), std::back_inserter(result),
                 [](const Alarm &alarm) { return alarm.open; });
    return result;
}

void AlarmList::acknowledgeAll()
{
    const int code = m_service->execCommand(this, names::acknowledgeAlarms)->getInt(0);
    if (code != 0)
        m_helper->throwLog(this, QStringLiteral("error"),
                           tr("The controller did not take the acknowledgement (%1)").arg(code));
}

} // namespace welmo::pendant
