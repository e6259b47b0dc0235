#pragma once

#include <QtTest>
#include <atomic>
#include <memory>
#include <mutex>

#include "linkwords.h"

/// A clock that the test sets. The controller's thread reads it all the time, and stops there while
/// the test holds the gate.
struct Hands
{
    std::atomic<qint64> now{0};
    std::atomic<int> readings{0};
    std::mutex gate;

    qint64 read()
    {
        const std::lock_guard lock(gate);
        ++readings;
        return now;
    }
};

/// A link, and the requests that tests make.
template<typename Link>
struct CallFixture
{
    std::unique_ptr<Link> link;

    LinkReply call(Kind kind, const QString &path, const QString &key = {},
                   const QVariant &payload = {}, int timeoutMs = patient) const
    {
        return link->call({kind, path, key, payload}, timeoutMs);
    }
    LinkReply get(int timeoutMs = patient) const
    {
        return call(Kind::Get, modeNode, {}, {}, timeoutMs);
    }
    int run(const QString &path) const { return call(Kind::Command, path).code; }
    LinkReply watch() const { return call(Kind::Watch, modeNode); }
    LinkReply command(const char *name, int timeoutMs = patient) const
    {
        return call(Kind::Command, setMode, {}, mode(name), timeoutMs);
    }
    LinkReply load(int number) const { return call(Kind::Get, arcOn, fileName(number)); }
    /// Writes a file with the current @p current.
    LinkReply save(int number, double current, int timeoutMs = patient) const
    {
        return call(Kind::Set, arcOn, fileName(number), file(number, current), timeoutMs);
    }
    /// Sends what a held key for wire sends.
    LinkReply feedWire() const
    {
        return call(Kind::Command, QStringLiteral("arc_weld.wire_feed"),
                    QStringLiteral("wire_feel"), QVariantMap{{QStringLiteral("feed"), true}});
    }
    bool waitUp(bool up = true) const
    {
        return QTest::qWaitFor([&] { return link->isUp() == up; }, patient);
    }
    bool comeUp() const
    {
        link->open();
        return waitUp();
    }
};

/// A fixture whose link is up.
template<typename Fixture>
struct Up : Fixture
{
    template<typename... Args>
    explicit Up(Args &&...args)
        : Fixture(std::forward<Args>(args)...)
    {
        if (!this->comeUp())
            qFatal("the link did not come up");
    }
};
