#pragma once

#include "broker.h"
#include "callfixture.h"
#include "cell.h"
#include "link/mqtt/mqttlink.h"

/// A controller behind a broker. Its clock runs, and the test can set it forward.
struct Fixture : CallFixture<welmo::links::MqttLink>
{
    std::shared_ptr<Hands> hands = std::make_shared<Hands>();
    std::unique_ptr<Cell> cell;

    explicit Fixture(const QString &folder = {})
    {
        const welmo::controller::Clock steady = welmo::controller::steadyClock();
        auto options = Cell::options(Broker::shared().as("cell"));
        options.dataFolder = folder;
        options.clock = [hands = hands, steady] { return steady() + hands->read(); };
        cell = std::make_unique<Cell>(options);
        link = std::make_unique<welmo::links::MqttLink>(welmo::links::MqttLink::Options{
            Broker::shared().as("anna"), "cell",
            [hands = hands, steady] { return steady() + hands->now; }});
    }

    void becomeOperator() const
    {
        QMetaObject::invokeMethod(
            cell->service(),
            [this] {
                using namespace welmo::links;
                cell->service()->setRoles(Roles({{"anna", Role::Operator}}));
            },
            Qt::BlockingQueuedConnection);
    }
    welmo::controller::Faults *faults() const { return cell->service()->faults(); }
    const welmo::controller::Journal &journal() const { return cell->service()->journal(); }
};
