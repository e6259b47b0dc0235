#pragma once

#include <QVector>
#include <memory>

#include "controller/controller.h"

inline QVariantMap with(QVariantMap map, const QString &key, const QVariant &value)
{
    map[key] = value;
    return map;
}

inline QVariantMap without(QVariantMap map, const QString &key)
{
    map.remove(key);
    return map;
}

/// A controller with a store in memory, a clock that the test sets, and a list of what it told.
struct ControllerFixture
{
    using Kind = welmo::controller::Request::Kind;
    struct Told
    {
        QString path;
        QVariant values;
    };

    qint64 now = 1000;
    std::unique_ptr<welmo::controller::Store> store;
    welmo::controller::Faults faults;
    welmo::controller::Journal journal;
    welmo::controller::Controller controller{*store, faults, journal, [this] { return now; }};
    QVector<Told> told;
    bool started;

    explicit ControllerFixture(
        std::unique_ptr<welmo::controller::Store> other = welmo::controller::Store::inMemory())
        : store(std::move(other))
    {
        controller.setNotify([this](const QString &path, const QVariant &values) {
            told.append({path, values});
        });
        started = controller.start().ok();
    }

    /// The payload with which a pendant chooses a welder.
    static QVariantMap welder(const QString &model, int current, bool enable)
    {
        return {{"enable", enable},       {"connect_to_welder", true},
                {"protocol", "Ethercat"}, {"mfr", "Aotai"},
                {"model", model},         {"current_type", current}};
    }

    welmo::controller::Reply get(const QString &path, const QString &key = {})
    {
        return controller.handle({Kind::Get, path, key, {}});
    }
    welmo::controller::Reply set(const QString &path, const QString &key, const QVariant &payload)
    {
        return controller.handle({Kind::Set, path, key, payload});
    }
    welmo::controller::Reply run(const QString &command, const QVariant &payload = {},
                                 const QString &payloadName = {})
    {
        return controller.handle({Kind::Command, command, payloadName, payload});
    }
    /// Lets time pass; the controller is called at its own pace, and only while it is busy.
    void pass(int ms)
    {
        controller.tick();
        const qint64 end = now + ms;
        while (now < end) {
            now = qMin(end, now + controller.paceMs());
            if (controller.isBusy())
                controller.tick();
        }
    }
    /// Lets time pass while a pendant sends beats with these presses.
    void live(int ms, const QVector<int> &presses)
    {
        constexpr int beatMs = 25;
        controller.beat(now, presses);
        for (const qint64 end = now + ms; now < end; controller.beat(now, presses))
            pass(int(qMin<qint64>(beatMs, end - now)));
    }
    /// The last told values of @p path; invalid if there were none.
    QVariant lastTold(const QString &path) const
    {
        QVariant last;
        for (const Told &entry : told)
            last = entry.path == path ? entry.values : last;
        return last;
    }
    QVector<welmo::controller::Journal::Event> events() const
    {
        QVector<welmo::controller::Journal::Event> result;
        const auto entries = journal.entries();
        for (const auto &entry : entries)
            result.append(entry.event);
        return result;
    }
};
