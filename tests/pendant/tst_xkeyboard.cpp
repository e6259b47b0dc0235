#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTest>
#include <QX11Info>
#include <clocale>
#include <fcntl.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "pendant/input/viewerproofs.h"
#include "support/locale.h"
#include "support/rows.h"
#include "support/testpendant.h"
#include "support/xserver.h"

using testsupport::Rows;
using testsupport::XServer;
using Event = welmo::controller::Journal::Event;

namespace {

// As for every test of what a hand does: to this controller no beat is late.
testsupport::Setup withoutTime()
{
    testsupport::Setup setup;
    setup.clock = [] { return 1000; };
    return setup;
}

/// A pendant whose keys work, on an X server with a keyboard.
struct Desk
{
    testsupport::TestPendant pendant{withoutTime()};

    Desk()
    {
        pendant.open("arcweldpackage");
        pendant.click("btn_connectSwitch");
        XServer::tool({"windowfocus", "--sync", QString::number(pendant.window()->winId())});
        QVERIFY(QTest::qWaitForWindowActive(pendant.window()));
    }
    void key(const char *what, const QStringList &names)
    {
        QVERIFY(XServer::tool(QStringList{what} + names));
    }
    void down(const QString &name) { key("keydown", {name}); }
    void up(const QString &name) { key("keyup", {name}); }
    /// What the wire did, by the controller's journal: a letter for each start and stop.
    QString wire()
    {
        QString all;
        for (const auto &entry : pendant.journal().entries()) {
            if (entry.event == Event::WireFeeds || entry.event == Event::WireStops)
                all += entry.event == Event::WireFeeds ? 'F' : '.';
        }
        return all;
    }
};

const QString f1 = "67"; // its scan code

void unmapF1()
{
    const xcb_keysym_t nothing = 0;
    const auto code = xcb_keycode_t(f1.toInt());
    xcb_change_keyboard_mapping(QX11Info::connection(), 1, code, 1, &nothing);
    xcb_flush(QX11Info::connection());
}

/// Another client that takes the keyboard to itself, as a screen lock does.
struct Grab
{
    xcb_connection_t *client = xcb_connect(nullptr, nullptr);

    Grab()
    {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(client)).data->root;
        const auto asked = xcb_grab_keyboard(client, 0, root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                             XCB_GRAB_MODE_ASYNC);
        free(xcb_grab_keyboard_reply(client, asked, nullptr));
    }
    ~Grab() { xcb_disconnect(client); }
};

} // namespace

/// The handle keys on the keyboard of a real window system: what it does to keys that are held.
class TestXKeyboard : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(XServer::run("setxkbmap", {"us"})); }
    void aHoldEnds()
    {
        const Rows<std::function<void(Desk &)>> rows{
            {"let go", [](Desk &desk) { desk.up("F1"); }},
            {"let go as another symbol",
             [](Desk &desk) {
                 desk.key("keydown", {"ctrl", "alt"});
                 desk.up("F1");
                 desk.key("keyup", {"alt", "ctrl"});
             }},
            {"a modifier", [](Desk &desk) { desk.down("shift"); }},
            {"another layout", [](Desk &) { QVERIFY(XServer::run("setxkbmap", {"de"})); }},
            {"a key without meaning", [](Desk &) { unmapF1(); }},
            {"the keyboard grabbed",
             [](Desk &desk) {
                 const Grab grab;
                 QTRY_COMPARE(desk.wire(), "F.");
             }},
        };
        for (const auto &[name, end] : rows) {
            Desk desk;
            desk.down("F1");
            QTRY_COMPARE(desk.wire(), "F");
            end(desk);
            QTRY_COMPARE(desk.wire(), "F.");
            desk.key("keyup", {f1, "shift"}); // by its place: its meaning may be gone
            QVERIFY(XServer::run("setxkbmap", {"us"}));
            desk.key("key", {"F1"});
            QTRY_COMPARE(desk.wire(), "F.F.");
        }
    }
    void numbersHaveOneSign()
    {
        const QByteArray locale = qgetenv("LC_ALL");
        if (!std::setlocale(LC_ALL, locale))
            QSKIP("this machine cannot have " + locale);
        const Rows<double> rows{
            {"12,5", 12.5}, {"7.2", 7.2}, {"2,7", 2.7}, {"1500", 2.7}, {"1,5", 1.5}};
        Desk desk;
        desk.pendant.openSubPage("Process Setting");
        auto *box = desk.pendant.find<QDoubleSpinBox>("sbxArconVoltage");
        for (const auto &[typed, value] : rows) {
            testsupport::finger::touch(box->findChild<QLineEdit *>());
            QVERIFY(XServer::tool({"type", "--delay", "0", typed}));
            desk.key("key", {"Return"});
            QTRY_COMPARE(box->value(), value);
            QTRY_COMPARE(box->cleanText(), QString::number(value, 'f', box->decimals()));
        }
        QVERIFY2(desk.pendant.lastMessage().startsWith("error: 1500 is out of range: 0 to "),
                 qPrintable(desk.pendant.lastMessage()));
    }
    // The program that carries a viewer's hand to this window stands still.
    void aHangingRelayHoldsNothing()
    {
        int ends[2];
        QVERIFY(pipe2(ends, O_NONBLOCK) == 0);
        qputenv(welmo::pendant::ViewerProofs::variable, QByteArray::number(ends[0]));
        QTimer proofs;
        connect(&proofs, &QTimer::timeout, [&] { QCOMPARE(write(ends[1], ".", 1), ssize_t(1)); });
        proofs.start(50);
        Desk desk;
        qunsetenv(welmo::pendant::ViewerProofs::variable);
        desk.down("F1");
        QTRY_COMPARE(desk.wire(), "F");
        proofs.stop();
        QTRY_COMPARE(desk.wire(), "F.");
        desk.up("F1");
        proofs.start();
        QTRY_VERIFY([&] {
            desk.key("key", {"F1"});
            return desk.wire() == "F.F.";
        }());
        close(ends[0]);
        close(ends[1]);
    }
    void aPressWithAModifierIsNone()
    {
        Desk desk;
        for (const char *modifier : {"ctrl", "alt", "shift", "super"}) {
            desk.down(modifier);
            desk.down("F1");
            desk.up(modifier); // F1 stays, and may repeat
            desk.up("F1");
        }
        desk.key("key", {"F1"});
        QTRY_COMPARE(desk.wire(), "F.");
    }
};

int main(int argc, char *argv[])
{
    const testsupport::XServer server;
    if (!server.isUp()) {
        qCritical("Xvfb does not start");
        return 1;
    }
    const testsupport::Locale locale;
    QApplication app(argc, argv);
    TestXKeyboard test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_xkeyboard.moc"
