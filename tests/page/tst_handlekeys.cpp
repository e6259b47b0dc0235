#include "page/handlekeys.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;

namespace {

enum Key { WireFeed, AirSupply, JogUp, ModeSwitching, PullBack, Monitor, JogDown };

enum Welder { Works, Refuses, NoLink, Error };

const QString readState = QStringLiteral("get arc_weld.welder_state");
const QString feed = QStringLiteral("do arc_weld.wire_feed wire_feel");
const QString reverse = QStringLiteral("do arc_weld.wire_feed wire_feel_back");
const QString gas = QStringLiteral("do arc_weld.gas_flow");
const QString mode = QStringLiteral("do arc_weld.set_weld_mode target_mode");

struct Fixture
{
    FormHost host;
    QObject page;
    welmo::HandleKeys actions{&page};
    tessa::PhysicalKeys *keys = host.host().keys();

    Fixture()
    {
        actions.registerArcButton();
        enableRegisterPhysicalButtons(&page, welmo::HandleKeys::setName, true);
    }
    /// What was sent and said when the key went down or up; "?" is a question for the welder's
    /// state.
    QString edge(Key key, bool down)
    {
        host.takeRequests();
        down ? keys->press(key) : keys->release(key);
        const QStringList all = host.takeRequests() + host.takeMessages();
        return all.join(", ").replace(readState, "?").remove(" []");
    }
    /// The key goes down and up; the bar stands between the two.
    QString stroke(Key key)
    {
        const QString down = edge(key, true);
        return down + " | " + edge(key, false);
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
    void whatAStrokeDoes_data()
    {
        const QString noWelder = "?, error: welder state error";
        const QString noLink = "error: tessa not connected";
        const QString failed = "?, #, error: Switching welding operation mode failed! | ";
        std::vector<Row<Key, QString, Welder, QString>> rows{
            {"gas", AirSupply, gas, Works, " | ?, #"},
            {"gas refused", AirSupply, gas, Refuses, " | ?, #"},
            {"gas, no welder", AirSupply, gas, Error, " | " + noWelder},
            {"mode", ModeSwitching, mode, Works, "?, # | "},
            {"mode refused", ModeSwitching, mode, Refuses, failed},
            {"mode, no link", ModeSwitching, mode, NoLink, noLink + " | "},
            {"mode, no welder", ModeSwitching, mode, Error, noWelder + " | "},
        };
        for (const Key key : {WireFeed, PullBack}) {
            const QByteArray wire = key == WireFeed ? "wire feeding" : "wire reverse";
            const QString request = key == WireFeed ? feed : reverse;
            const QString both = "?, #, %2: " + wire + " %1 | ?, #, %2: cancel " + wire + " %1";
            rows.push_back({wire, key, request, Works, both.arg("success", "info")});
            rows.push_back({wire + " refused", key, request, Refuses, both.arg("fail", "error")});
            rows.push_back(
                {wire + ", no welder", key, request, Error, noWelder + " | " + noWelder});
            // The release tries to stop the wire even so.
            rows.push_back({wire + ", no link", key, request, NoLink,
                            noLink + " | error: cancel " + wire + " fail"});
        }
        addRows(rows);
    }
    void whatAStrokeDoes()
    {
        const auto &[name, key, request, welder, outcome] =
            currentRow<Key, QString, Welder, QString>();
        Fixture ui;
        if (welder == Refuses)
            ui.host.spoil(FormHost::Refused, request);
        else // without heartbeats the controller would refuse it
            ui.host.link()->answers[request] = 0;
        if (welder == Error)
            ui.host.link()->answers[readState] = QVariantMap{{"state", "error"}};
        else if (welder == NoLink)
            QVERIFY(ui.host.disconnect());
        QCOMPARE(ui.stroke(key), QString(outcome).replace('#', request));
    }
    void whatIsSent()
    {
        Fixture ui;
        const auto payload = [&ui](Key key, bool down) {
            ui.edge(key, down);
            return ui.host.link()->lastPayload.toMap();
        };
        for (const bool down : {true, false}) {
            QCOMPARE(payload(WireFeed, down), (QVariantMap{{"feed", down}}));
            QCOMPARE(payload(PullBack, down), (QVariantMap{{"reverse", down}}));
        }
        for (const auto &[before, after] : {std::pair{"test_run", "simu"},
                                            {"simu", "real"},
                                            {"real", "test_run"},
                                            {"sleep", "test_run"}}) {
            m("welmo")->set(nullptr, "welding_options.weld_mode", before);
            QCOMPARE(payload(ModeSwitching, true), (QVariantMap{{"mode", after}}));
            QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), before);
            ui.edge(ModeSwitching, false);
        }
    }
    void jogSteps_data()
    {
        addRows<Key, double, int, double>({{"half a percent goes up", JogUp, 0.455, 100, 0.47},
                                           {"the highest", JogUp, 0.995, 100, 0.995},
                                           {"one below", JogUp, 0.99, 100, 1.0},
                                           {"a lower limit", JogUp, 0.5, 50, 0.5},
                                           {"down", JogDown, 0.3, 100, 0.29},
                                           {"the lowest", JogDown, 0.01, 100, 0.01},
                                           {"one above", JogDown, 0.02, 100, 0.01}});
    }
    void jogSteps()
    {
        const auto &[name, key, before, highest, after] = currentRow<Key, double, int, double>();
        Fixture ui;
        m("orbo.handle")->set(nullptr, "max_jog_speed", highest);
        setJogOverride(before);
        QCOMPARE(ui.stroke(key), " | ");
        QCOMPARE(jogOverride(), after);
    }
    void jogRepeatsWhileHeld()
    {
        Fixture ui;
        setJogOverride(1.0);
        ui.edge(JogUp, true); // at the limit the repetition ends at once
        ui.edge(JogDown, true);
        QTRY_COMPARE(jogOverride(), 0.98);
        ui.edge(JogDown, false);
        ui.edge(JogUp, false);
        ui.edge(JogUp, true);
        QTRY_COMPARE(jogOverride(), 1.0);
    }
};

QTEST_MAIN(tst_HandleKeys)
#include "tst_handlekeys.moc"
