#pragma once

#include <QSignalSpy>

#include "callfixture.h"
#include "link/mqtt/mqttlink.h"

/// A pendant on the network, and the problems that it tells its operator.
struct Pendant : CallFixture<welmo::links::MqttLink>
{
    std::unique_ptr<QSignalSpy> problems;

    explicit Pendant(const welmo::links::BrokerAddress &address)
    {
        link = std::make_unique<welmo::links::MqttLink>(
            welmo::links::MqttLink::Options{address, "cell"});
        problems = std::make_unique<QSignalSpy>(link.get(), &welmo::links::MqttLink::problem);
    }
    bool isTold(const QString &word) const
    {
        (void)QTest::qWaitFor([this] { return !problems->isEmpty(); }, patient);
        const QString said = problems->value(problems->size() - 1).value(0).toString();
        if (!said.contains(word))
            qWarning("told \"%s\"", qPrintable(said));
        return said.contains(word);
    }
};
