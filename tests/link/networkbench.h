#pragma once

#include "broker.h"
#include "callbench.h"
#include "cell.h"
#include "link/mqttlink.h"

/// A controller behind a broker. Its time goes on by itself, and the test can turn it further.
struct Bench : CallBench<links::MqttLink>
{
    std::shared_ptr<Hands> hands = std::make_shared<Hands>();
    std::unique_ptr<Cell> cell;

    explicit Bench(const QString &folder = {})
    {
        const controller::Clock steady = controller::steadyClock();
        auto options = Cell::options(Broker::shared().as("cell"));
        options.dataFolder = folder;
        options.clock = [hands = hands, steady] { return steady() + hands->read(); };
        cell = std::make_unique<Cell>(options);
        link = std::make_unique<links::MqttLink>(
            links::MqttLink::Options{Broker::shared().as("anna"), "cell",
                                     [hands = hands, steady] { return steady() + hands->now; }});
    }

    controller::Faults *faults() const { return cell->service()->faults(); }
    const controller::Journal &journal() const { return cell->service()->journal(); }
};
