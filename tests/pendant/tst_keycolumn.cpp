#include <QLineEdit>
#include <QTest>

#include "pando/frame.h"
#include "pendant/window/handlekey.h"
#include "support/rows.h"
#include "support/testpendant.h"

using testsupport::Rows;
using testsupport::Setup;
using testsupport::TestPendant;
using welmo::controller::Faults;
using Event = welmo::controller::Journal::Event;

namespace {

constexpr int wireFeed = 0;
constexpr int pullBack = 4;
const QPoint onThePage{600, 400};

// A machine under load misses beats, which stops wire as well; to this controller none is late.
Setup withoutTime()
{
    Setup setup;
    setup.clock = [] { return 1000; };
    return setup;
}

/// A pendant whose keys work, with a hand on them and an eye on the wire.
struct Desk
{
    TestPendant pendant{withoutTime()};
    QTouchDevice *screen = QTest::createTouchDevice();
    QWindow *window = pendant.window()->windowHandle();
    tessa::PhysicalKeys *keys = pendant.host()->keys();

    Desk()
    {
        pendant.open("arcweldpackage");
        pendant.click("btn_connectSwitch");
    }
    auto faces() { return pendant.window()->findChildren<welmo::pendant::HandleKey *>(); }
    QPoint place(int key)
    {
        auto *face = faces().at(key);
        return face->mapTo(face->window(), face->rect().center());
    }
    void press(int key) { QTest::mousePress(window, Qt::LeftButton, {}, place(key)); }
    void lift(const QPoint &point) { QTest::mouseRelease(window, Qt::LeftButton, {}, point); }
    /// A finger comes down or goes up while @p other stays where it is.
    void fingerDown(int id, int key, int other = 0) { touch(other).press(id, place(key), window); }
    void fingerUp(int id, int key, int other = 0) { touch(other).release(id, place(key), window); }
    QTest::QTouchEventSequence touch(int staying)
    {
        auto sequence = QTest::touchEvent(window, screen);
        return staying > 0 ? sequence.stationary(staying) : sequence;
    }
    void keyDown(Qt::Key key = Qt::Key_F1) { QTest::keyPress(window, key); }
    void keyUp(Qt::Key key = Qt::Key_F1) { QTest::keyRelease(window, key); }
    /// As the keyboard sends it while F1 stays down.
    void repeat()
    {
        for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent event(type, Qt::Key_F1, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(window, &event);
        }
    }
    void enable(bool on) { enableRegisterPhysicalButtons(nullptr, "welmo_monitor", on); }
    bool isAnyHeld()
    {
        bool held = false;
        for (int key = 0; key < keys->count(); ++key)
            held = held || keys->isHeld(key);
        return held;
    }
    /// What the wire did, by the controller's journal: a letter for each start and stop.
    QString wire()
    {
        static const QMap<Event, QString> letters{
            {Event::WireFeeds, "F"}, {Event::WireRetracts, "R"}, {Event::WireStops, "."}};
        QString all;
        for (const auto &entry : pendant.journal().entries())
            all += letters.value(entry.event);
        return all;
    }
    int told(const QString &text)
    {
        int times = 0;
        for (const auto &entry : pendant.messages())
            times += entry.text == text ? 1 : 0;
        return times;
    }
};

using Act = std::function<void(Desk &)>;

} // namespace

/// The column of physical keys, as a hand and the controller's journal see it.
class TestKeyColumn : public QObject
{
    Q_OBJECT
private slots:
    void theColumnFollowsTheKeys()
    {
        Desk desk;
        QCOMPARE(desk.faces().size(), 7);
        auto *face = desk.faces().first();
        const QImage before = face->grab().toImage();
        desk.press(wireFeed);
        QVERIFY(face->grab().toImage() != before);
        desk.lift(onThePage);
        QVERIFY(face->grab().toImage() == before);
        desk.enable(false);
        QVERIFY(!face->isEnabled());
        Setup bare;
        bare.modulePath = NO_MODULE;
        desk.pendant.restart(bare);
        QVERIFY(desk.pendant.find("pndKeys")->isHidden());
    }
    // NOLINTNEXTLINE(readability-function-size): a table
    void wireMovesWhileHeld()
    {
        const Rows<QString, Act> rows{
            {"mouse, twice, as fast as a double click, lifted elsewhere", "F.F.",
             [](Desk &desk) {
                 for (const char *wire : {"F", "F.F"}) {
                     desk.press(wireFeed);
                     QTest::mouseMove(desk.window, onThePage);
                     QCOMPARE(desk.wire(), wire);
                     desk.lift(onThePage);
                 }
             }},
            {"a release that went elsewhere", "F.",
             [](Desk &desk) {
                 desk.press(wireFeed);
                 QMouseEvent move(QEvent::MouseMove, onThePage, Qt::NoButton, Qt::NoButton, {});
                 QCoreApplication::sendEvent(desk.window, &move);
             }},
            // One wire: the second key finds it moving, and is held without effect.
            {"two fingers", "F.R.",
             [](Desk &desk) {
                 desk.fingerDown(1, wireFeed);
                 desk.fingerDown(2, pullBack, 1);
                 QVERIFY(desk.keys->isHeld(wireFeed) && desk.keys->isHeld(pullBack));
                 desk.fingerUp(1, wireFeed, 2);
                 QVERIFY(!desk.keys->isHeld(wireFeed) && desk.keys->isHeld(pullBack));
                 desk.fingerUp(2, pullBack);
                 desk.fingerDown(3, pullBack);
                 desk.fingerUp(3, pullBack);
             }},
            {"touch cancelled", "F.",
             [](Desk &desk) {
                 desk.fingerDown(1, wireFeed);
                 QTouchEvent cancel(QEvent::TouchCancel, desk.screen);
                 QCoreApplication::sendEvent(desk.pendant.find("pndKeys"), &cancel);
                 QCOMPARE(desk.wire(), "F.");
                 desk.fingerUp(1, wireFeed);
             }},
            {"keyboard, while a field has the focus", "F.",
             [](Desk &desk) {
                 pando::frame().rightSide->switchTo("welmo.page");
                 pando::frame().rightSide->show();
                 desk.pendant.click("ledtWeldingName");
                 desk.keyDown();
                 QCOMPARE(desk.wire(), "F");
                 QTest::keyRelease(desk.window, Qt::Key_F1, Qt::ShiftModifier);
                 QCOMPARE(desk.pendant.find<QLineEdit>("ledtWeldingName")->text(), "");
             }},
            {"keyboard, repeating", "F.",
             [](Desk &desk) {
                 desk.keyDown();
                 for (int i = 0; i < 10; ++i)
                     desk.repeat();
                 QCOMPARE(desk.wire(), "F");
                 QCOMPARE(desk.told("wire feeding success"), 1);
                 desk.enable(false);
                 desk.enable(true);
                 desk.keyDown(); // a repetition that does not say so
                 desk.keyUp();
                 QCOMPARE(desk.told("cancel wire feeding success"), 1);
             }},
            {"keyboard and mouse: who pressed releases", "F.",
             [](Desk &desk) {
                 desk.keyDown();
                 desk.press(wireFeed);
                 desk.lift(onThePage);
                 QCOMPARE(desk.wire(), "F");
                 desk.keyUp();
             }},
            {"what means something else", "",
             [](Desk &desk) {
                 for (const auto modifier :
                      {Qt::AltModifier, Qt::ControlModifier, Qt::ShiftModifier})
                     QTest::keyClick(desk.window, Qt::Key_F1, modifier);
                 QTest::keyClick(desk.window, Qt::Key_F8);
                 QTest::mouseClick(desk.window, Qt::RightButton, {}, desk.place(wireFeed));
             }},
        };
        for (const auto &[name, wire, act] : rows) {
            Desk desk;
            act(desk);
            QCOMPARE(desk.wire(), wire);
        }
    }
    // And what was held takes a fresh press, whatever the keyboard goes on repeating.
    void everyPressIsReleased()
    {
        const Rows<Act> rows{
            {"the sets change",
             [](Desk &desk) {
                 registerPhysicalButtons(&desk.pendant.app(), "other", {{"x", {}, {}, {}}}, {}, {});
             }},
            {"another window comes to the front",
             [](Desk &desk) {
                 QWidget other;
                 other.show();
                 QVERIFY(QTest::qWaitForWindowActive(&other));
                 other.close();
                 desk.window->requestActivate();
                 QVERIFY(QTest::qWaitForWindowActive(desk.window));
             }},
            {"a dialog opens",
             [](Desk &desk) {
                 QWidget dialog;
                 dialog.setWindowModality(Qt::ApplicationModal);
                 dialog.show();
                 QCOMPARE(desk.wire(), "R."); // at once, not when the window system knows
             }},
            {"hidden",
             [](Desk &desk) {
                 desk.pendant.window()->hide();
                 QCOMPARE(desk.wire(), "R.");
                 desk.pendant.window()->show();
             }},
        };
        for (const auto &[name, event] : rows) {
            Desk desk;
            desk.fingerDown(1, pullBack);
            desk.keyDown(Qt::Key_F4);
            desk.keyDown(Qt::Key_F1);
            QCOMPARE(desk.wire(), "R");
            event(desk);
            QCOMPARE(desk.wire(), "R.");
            desk.repeat();
            desk.keyDown(); // not every repetition says what it is
            desk.touch(0).move(1, desk.place(wireFeed), desk.window);
            QVERIFY(!desk.isAnyHeld());
            desk.fingerUp(1, wireFeed);
            desk.keyUp(Qt::Key_F1);
            QCOMPARE(desk.wire(), "R.");
            QCOMPARE(desk.told("cancel wire reverse success"), 1);
            QCOMPARE(desk.told("cancel wire feeding success"), 1);
            QTest::keyClick(desk.window, Qt::Key_F5);
            QCOMPARE(desk.wire(), "R.R.");
        }
    }
    void aRestartReleases()
    {
        Desk desk;
        desk.keyDown();
        QString wire;
        QObject::connect(desk.pendant.window(), &QObject::destroyed, &desk.pendant.app(),
                         [&] { wire = desk.wire(); });
        desk.pendant.app().stop();
        QCOMPARE(wire, "F.");
        desk.pendant.app().start();
        QVERIFY(desk.pendant.waitConnected());
        desk.window = desk.pendant.window()->windowHandle();
        desk.keys = desk.pendant.host()->keys();
        desk.enable(true);
        desk.keyDown(); // F1 has not come up yet
        QVERIFY(!desk.isAnyHeld());
        desk.keyUp();
        desk.keyDown();
        QVERIFY(desk.isAnyHeld());
    }
    // The key stays down; only a fresh press moves wire again.
    void whatStopsTheWire()
    {
        for (const auto fault : {Faults::Fault::LinkDown, Faults::Fault::WelderError}) {
            Desk desk;
            desk.keyDown();
            desk.pendant.faults()->set(fault, true);
            QTRY_COMPARE(desk.wire(), "F.");
            QVERIFY(fault != Faults::Fault::LinkDown || desk.pendant.waitDisconnected());
            desk.pendant.faults()->clear();
            QVERIFY(desk.pendant.waitConnected());
            desk.repeat();
            desk.keyUp();
            QCOMPARE(desk.wire(), "F.");
            QTest::keyClick(desk.window, Qt::Key_F1);
            QCOMPARE(desk.wire(), "F.F.");
        }
    }
    void theFirstStateIsTheLeafs()
    {
        Desk desk; // which switched the device on
        Setup setup;
        setup.keepFiles = true;
        setup.connects = false;
        desk.pendant.restart(setup);
        QVERIFY(desk.pendant.host()->keys()->isEnabled(wireFeed));
        QVERIFY(m("welmo.device.enable")->getBool());
    }
};

QTEST_MAIN(TestKeyColumn)
#include "tst_keycolumn.moc"
