#include <QtTest>

#include "page/handlekeys.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::FormHost;
using testsupport::Rows;

namespace {

enum Key { WireFeed, AirSupply, JogUp, ModeSwitching, PullBack, Monitor, JogDown };

constexpr auto works = FormHost::NoFailure;
constexpr auto noLink = FormHost::LinkDown;
constexpr auto refused = FormHost::Refused;
const QString feed = QStringLiteral("do arc_weld.wire_feed wire_feel");
const QString reverse = QStringLiteral("do arc_weld.wire_feed wire_feel_back");
const QString gas = QStringLiteral("do arc_weld.gas_flow");
const QString mode = QStringLiteral("do arc_weld.set_weld_mode target_mode");

struct Desk
{
    FormHost host;
    QObject page;
    HandleKeys actions{&page};
    tessa::PhysicalKeys *keys = host.host().keys();

    Desk()
    {
        actions.registerArcButton();
        enableRegisterPhysicalButtons(&page, HandleKeys::setName, true);
        // A controller that starts nothing for a pendant without a heartbeat.
        host.link()->answers = {{feed, 0}, {reverse, 0}};
    }
    /// What an edge of the key sent and said; the welder's state was asked for when there is a "?".
    QString edge(Key key, bool down)
    {
        host.takeRequests();
        down ? keys->press(key) : keys->release(key);
        const QStringList all = host.takeRequests() + host.takeMessages();
        return all.join(", ").replace("get arc_weld.welder_state", "?").remove(" []");
    }
    /// Both edges; what the second did stands behind the bar.
    QString stroke(Key key)
    {
        const QString down = edge(key, true);
        return down + " | " + edge(key, false);
    }
    void setMode(const QString &code)
    {
        m("welmo")->set(nullptr, "welding_options.weld_mode", code);
    }
};

double jogOverride()
{
    return m("orbo.handle.jog.override")->getDouble();
}

void setJogOverride(double fraction)
{
    m("orbo.handle.jog")->set(nullptr, "override", fraction);
}

} // namespace

/// What each handle key does when it goes down and when it comes up.
class tst_HandleKeys : public QObject
{
    Q_OBJECT

private slots:
    void whatAStrokeDoes()
    {
        const QString noWelder = "error: welder state error";
        const QString stateAsked = "?, " + noWelder;
        const Rows<Key, QString, FormHost::Failure, QString> rows{
            {"feed", WireFeed, feed, works,
             "?, " + feed + ", info: wire feeding success | ?, " + feed
                 + ", info: cancel wire feeding success"},
            {"back", PullBack, reverse, works,
             "?, " + reverse + ", info: wire reverse success | ?, " + reverse
                 + ", info: cancel wire reverse success"},
            {"feed refused", WireFeed, feed, refused,
             "?, " + feed + ", error: wire feeding fail | ?, " + feed
                 + ", error: cancel wire feeding fail"},
            {"back refused", PullBack, reverse, refused,
             "?, " + reverse + ", error: wire reverse fail | ?, " + reverse
                 + ", error: cancel wire reverse fail"},
            // The release is tried all the same.
            {"feed without link", WireFeed, feed, noLink,
             "error: tessa not connected | error: cancel wire feeding fail"},
            {"mode without link", ModeSwitching, mode, noLink, "error: tessa not connected | "},
            {"gas", AirSupply, gas, works, " | ?, " + gas},
            {"gas refused", AirSupply, gas, refused, " | ?, " + gas},
            {"mode", ModeSwitching, mode, works, "?, " + mode + " | "},
            {"mode refused", ModeSwitching, mode, refused,
             "?, " + mode + ", error: Switching welding operation mode failed! | "},
        };
        for (const auto &[name, key, request, failure, outcome] : rows) {
            Desk desk;
            if (failure != works)
                desk.host.link()->answers.clear();
            desk.host.spoil(failure, request);
            QCOMPARE(desk.stroke(key), outcome);
        }
        Desk desk;
        desk.host.link()->answers["get arc_weld.welder_state"] = QVariantMap{{"state", "error"}};
        QCOMPARE(desk.stroke(WireFeed), stateAsked + " | " + stateAsked);
        QCOMPARE(desk.stroke(PullBack), stateAsked + " | " + stateAsked);
        QCOMPARE(desk.stroke(AirSupply), " | " + stateAsked);
        QCOMPARE(desk.stroke(ModeSwitching), stateAsked + " | ");
    }

    void whatIsSent()
    {
        Desk desk;
        const auto payload = [&desk](Key key, bool down) {
            desk.edge(key, down);
            return desk.host.link()->lastPayload.toMap();
        };
        for (const bool down : {true, false}) {
            QCOMPARE(payload(WireFeed, down), (QVariantMap{{"feed", down}}));
            QCOMPARE(payload(PullBack, down), (QVariantMap{{"reverse", down}}));
        }
        for (const auto &[before, after] :
             {std::pair{"test_run", "simu"}, std::pair{"simu", "real"},
              std::pair{"real", "test_run"}, std::pair{"", "test_run"},
              std::pair{"sleep", "test_run"}}) {
            desk.setMode(before);
            QCOMPARE(payload(ModeSwitching, true), (QVariantMap{{"mode", after}}));
            QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), QString(before));
            desk.edge(ModeSwitching, false);
        }
    }

    void jogSteps()
    {
        const Rows<Key, double, int, double> rows{
            {"half a percent goes up", JogUp, 0.455, 100, 0.47},
            {"the highest", JogUp, 0.995, 100, 0.995},
            {"one below", JogUp, 0.99, 100, 1.0},
            {"a lower limit", JogUp, 0.5, 50, 0.5},
            {"down", JogDown, 0.3, 100, 0.29},
            {"the lowest", JogDown, 0.01, 100, 0.01},
            {"one above", JogDown, 0.02, 100, 0.01},
        };
        for (const auto &[name, key, before, highest, after] : rows) {
            Desk desk;
            m("orbo.handle")->set(nullptr, "max_jog_speed", highest);
            setJogOverride(before);
            QCOMPARE(desk.stroke(key), QString(" | "));
            QCOMPARE(jogOverride(), after);
        }
    }

    void jogRepeatsWhileHeld()
    {
        Desk desk;
        setJogOverride(1.0);
        desk.edge(JogUp, true); // at the limit, where its timer ends at once
        desk.edge(JogDown, true);
        QTRY_COMPARE(jogOverride(), 0.98);
        desk.edge(JogDown, false);
        desk.edge(JogUp, false);
        desk.edge(JogUp, true);
        QTRY_COMPARE(jogOverride(), 1.0);
    }

    void theMonitorIsToggled()
    {
        Desk desk;
        auto *bar = pando::frame().rightSide.data();
        for (const char *page : {"other", "welmo.page"})
            bar->addPage(nullptr, page, new QWidget);
        for (const bool shown : {true, false}) {
            desk.edge(Monitor, true);
            QCOMPARE(bar->isHidden(), shown);
            QCOMPARE(desk.edge(Monitor, false), QString());
            QCOMPARE(bar->isHidden(), !shown);
            QCOMPARE(bar->currentKey(), QString("welmo.page"));
            bar->switchTo("other");
        }
    }
};

QTEST_MAIN(tst_HandleKeys)
#include "tst_handlekeys.moc"
