#include <QX11Info>
#include <clocale>
#include <fcntl.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "pendant/input/relaywatch.h"
#include "support/datarows.h"
#include "support/locale.h"
#include "support/testpendant.h"
#include "support/xserver.h"

using namespace testsupport;

namespace {

/// A pendant whose keys work, on an X server with a keyboard.
struct Fixture
{
    TestPendant pendant{withoutTime()};

    Fixture()
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
    QString wire() const { return pendant.wire(); }
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

/// The handle keys on a real X server: what ends the hold of a key.
class TestXKeyboard : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(XServer::run("setxkbmap", {"us"})); }
    void aHoldEnds_data()
    {
        addRows<std::function<void(Fixture &)>>(
            {{"let go", [](Fixture &ui) { ui.up("F1"); }},
             {"let go as another symbol",
              [](Fixture &ui) {
                  ui.key("keydown", {"ctrl", "alt"});
                  ui.up("F1");
                  ui.key("keyup", {"alt", "ctrl"});
              }},
             {"a modifier", [](Fixture &ui) { ui.down("shift"); }},
             {"another layout", [](Fixture &) { QVERIFY(XServer::run("setxkbmap", {"de"})); }},
             {"a key without meaning", [](Fixture &) { unmapF1(); }},
             {"the keyboard grabbed", [](Fixture &ui) {
                  const Grab grab;
                  QTRY_COMPARE(ui.wire(), "F.");
              }}});
    }
    void aHoldEnds()
    {
        const auto &[name, end] = currentRow<std::function<void(Fixture &)>>();
        Fixture ui;
        ui.down("F1");
        QTRY_COMPARE(ui.wire(), "F");
        end(ui);
        QTRY_COMPARE(ui.wire(), "F.");
        ui.key("keyup", {f1, "shift"}); // by its scan code, since F1 may not be mapped
        QVERIFY(XServer::run("setxkbmap", {"us"}));
        ui.key("key", {"F1"});
        QTRY_COMPARE(ui.wire(), "F.F.");
    }
    void numbersHaveOneSign()
    {
        const QByteArray locale = qgetenv("LC_ALL");
        if (!std::setlocale(LC_ALL, locale))
            QSKIP("this machine cannot have " + locale);
        Fixture ui;
        ui.pendant.openSubPage("Process Setting");
        auto *box = ui.pendant.find<QDoubleSpinBox>("sbxArconVoltage");
        for (const auto &[typed, value] :
             {std::pair{"12,5", 12.5}, {"7.2", 7.2}, {"2,7", 2.7}, {"1500", 2.7}, {"1,5", 1.5}}) {
            finger::touch(box->findChild<QLineEdit *>());
            QVERIFY(XServer::tool({"type", "--delay", "0", typed}));
            ui.key("key", {"Return"});
            QTRY_COMPARE(box->value(), value);
            QTRY_COMPARE(box->cleanText(), QString::number(value, 'f', box->decimals()));
        }
        QVERIFY2(ui.pendant.lastMessage().startsWith("error: 1500 is out of range: 0 to "),
                 qPrintable(ui.pendant.lastMessage()));
    }
    // The relay between a browser and this window hangs.
    void aHangingRelayHoldsNothing()
    {
        int ends[2];
        QVERIFY(pipe2(ends, O_NONBLOCK) == 0);
        qputenv(welmo::pendant::RelayWatch::variable, QByteArray::number(ends[0]));
        QTimer proofs;
        connect(&proofs, &QTimer::timeout, [&] { QCOMPARE(write(ends[1], ".", 1), ssize_t(1)); });
        proofs.start(50);
        Fixture ui;
        qunsetenv(welmo::pendant::RelayWatch::variable);
        ui.down("F1");
        QTRY_COMPARE(ui.wire(), "F");
        proofs.stop();
        QTRY_COMPARE(ui.wire(), "F.");
        ui.up("F1");
        proofs.start();
        QTRY_VERIFY([&] {
            ui.key("key", {"F1"});
            return ui.wire() == "F.F.";
        }());
        close(ends[0]);
        close(ends[1]);
    }
    void aPressWithAModifierIsNone()
    {
        Fixture ui;
        for (const char *modifier : {"ctrl", "alt", "shift", "super"}) {
            ui.down(modifier);
            ui.down("F1");
            ui.up(modifier); // F1 stays down and may repeat
            ui.up("F1");
        }
        ui.key("key", {"F1"});
        QTRY_COMPARE(ui.wire(), "F.");
    }
};

int main(int argc, char *argv[])
{
    const XServer server;
    if (!server.isUp()) {
        qCritical("Xvfb does not start");
        return 1;
    }
    const Locale locale;
    QApplication app(argc, argv);
    TestXKeyboard test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_xkeyboard.moc"
