#pragma once

#include <QtTest>
#include <memory>

#include "linkwords.h"

/// What a test asks of a link.
template<typename Link>
struct CallBench
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
    LinkReply watch() const { return call(Kind::Watch, modeNode); }
    LinkReply command(const char *name, int timeoutMs = patient) const
    {
        return call(Kind::Command, setMode, {}, mode(name), timeoutMs);
    }
    LinkReply save(int number, int timeoutMs = patient) const
    {
        const QString name = fileName(number);
        return call(Kind::Set, arcOn, name, file(number), timeoutMs);
    }
    bool comeUp() const
    {
        link->open();
        return QTest::qWaitFor([this] { return link->isUp(); }, patient);
    }
};
