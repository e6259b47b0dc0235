#include <QLineEdit>
#include <QTest>

#include "pando/frame.h"
#include "pendant/handlekey.h"
#include "support/rows.h"
#include "support/testpendant.h"

using controller::Faults;
using testsupport::TestPendant;
using Event = controller::Journal::Event;

namespace {

constexpr int wireFeed = 0;
constexpr int pullBack = 4;

// A machine under load misses beats, which stops wire as well; to this controller none is late.
testsupport::Setup withoutTime()
{
    testsupport::Setup setup;
    setup.clock = [] { return 1000; };
    return setup;
}

/// A pendant whose keys work, with a hand on them and an eye on the wire.
struct Desk
{
    TestPendant pendant{withoutTime()};
    QTouchDevice *screen = QTest::createTouchDevice();

    Desk()
    {
        pendant.open("arcweldpackage");
        pendant.click("btn_connectSwitch");
    }
    QWindow *window() { return pendant.window()->windowHandle(); }
    tessa::PhysicalKeys *keys() { return pendant.host()->keys(); }
    QList<pendant::HandleKey *> faces()
    {
        return pendant.find("pndKeys")->findChildren<pendant::HandleKey *>();
    }
    QPoint place(int key)
    {
        auto *face = faces().at(key);
        return face->mapTo(pendant.window(), face->rect().center());
    }
    void press(int key) { QTest::mousePress(window(), Qt::LeftButton, {}, place(key)); }
    void lift(int key) { QTest::mouseRelease(window(), Qt::LeftButton, {}, place(key)); }
    /// A finger comes down or goes up while @p other stays where it is.
    void fingerDown(int id, int key, int other = 0)
    {
        touch(other).press(id, place(key), window());
    }
    void fingerUp(int id, int key, int other = 0)
    {
        touch(other).release(id, place(key), window());
    }
    QTest::QTouchEventSequence touch(int staying)
    {
        auto sequence = QTest::touchEvent(window(), screen);
        if (staying > 0)
            sequence.stationary(staying);
        return sequence;
    }
    /// The host's own way, as another module would disable the device.
    void enable(bool on) { enableRegisterPhysicalButtons(nullptr, "welmo_monitor", on); }

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

/// As the keyboard sends it while a key stays down.
void repeat(QWindow *window, Qt::Key key)
{
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(window, &event);
    }
}

using Act = std::function<void(Desk &)>;
using testsupport::Rows;

} // namespace

/// The column of physical keys, as a hand and the controller's journal see it.
class TestKeyColumn : public QObject
{
    Q_OBJECT
private slots:
    void theColumnFollowsTheKeys()
    {
        testsupport::Setup bare;
        bare.modulePath = TOY_MODULE;
        bare.connects = false;
        {
            TestPendant pendant(bare);
            QVERIFY(pendant.find("pndKeys")->isHidden());
        }
        Desk desk;
        QCOMPARE(desk.faces().size(), 7);
        for (const char *page : {"home", "messages", "controller", "arcweldpackage"}) {
            desk.pendant.open(page);
            pando::frame().rightSide->setVisible(QString(page) != "home");
            QCoreApplication::processEvents();
            QCOMPARE(desk.pendant.window()->size(), QSize(1280, 800));
            for (auto *face : desk.faces()) {
                QVERIFY(face->width() >= 64 && face->height() >= 64 && face->isEnabled());
                QVERIFY(!face->visibleRegion().isEmpty());
            }
        }
        const auto top = [&desk](int key) { return desk.place(key).y(); };
        QVERIFY(top(4) - top(3) > top(3) - top(2)); // the second group stands apart
        const QImage before = desk.faces().first()->grab().toImage();
        desk.press(wireFeed);
        QVERIFY(desk.faces().first()->grab().toImage() != before);
        desk.lift(wireFeed);
        QVERIFY(desk.faces().first()->grab().toImage() == before);
        desk.enable(false);
        QVERIFY(!desk.faces().first()->isEnabled());
    }
    void wireMovesWhileHeld()
    {
        const Rows<QString, Act> rows{
            {"mouse", "F.",
             [](Desk &desk) {
                 desk.press(wireFeed);
                 QCOMPARE(desk.wire(), "F");
                 desk.lift(wireFeed);
             }},
            {"mouse twice, as fast as a double click", "F.F.",
             [](Desk &desk) {
                 for (int i = 0; i < 2; ++i) {
                     desk.press(wireFeed);
                     desk.lift(wireFeed);
                 }
             }},
            {"lifted elsewhere", "F.",
             [](Desk &desk) {
                 desk.press(wireFeed);
                 QTest::mouseMove(desk.window(), {600, 400});
                 QCOMPARE(desk.wire(), "F");
                 QTest::mouseRelease(desk.window(), Qt::LeftButton, {}, {600, 400});
             }},
            {"beside the keys", "",
             [](Desk &desk) {
                 QTest::mouseClick(desk.window(), Qt::LeftButton, {}, {1182, 400});
                 QTest::mouseClick(desk.window(), Qt::RightButton, {}, desk.place(wireFeed));
             }},
            {"one finger after the other", "F.R.",
             [](Desk &desk) {
                 for (int key : {wireFeed, pullBack}) {
                     desk.fingerDown(1, key);
                     desk.fingerUp(1, key);
                 }
             }},
            {"two fingers", "F.R.",
             [](Desk &desk) {
                 desk.fingerDown(1, wireFeed);
                 desk.fingerDown(2, pullBack, 1);
                 QVERIFY(desk.keys()->isHeld(wireFeed) && desk.keys()->isHeld(pullBack));
                 // One wire: the second key found it moving, and is held without effect.
                 desk.fingerUp(1, wireFeed, 2);
                 QVERIFY(!desk.keys()->isHeld(wireFeed) && desk.keys()->isHeld(pullBack));
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
            {"a release that went elsewhere", "F.",
             [](Desk &desk) {
                 desk.press(wireFeed);
                 QMouseEvent move(QEvent::MouseMove, {600, 400}, Qt::NoButton, Qt::NoButton, {});
                 QCoreApplication::sendEvent(desk.window(), &move);
             }},
            {"keyboard, while a field has the focus", "F.",
             [](Desk &desk) {
                 pando::frame().rightSide->switchTo("welmo.page");
                 pando::frame().rightSide->show();
                 desk.pendant.click("ledtWeldingName");
                 QTest::keyPress(desk.window(), Qt::Key_F1);
                 QCOMPARE(desk.wire(), "F");
                 QTest::keyRelease(desk.window(), Qt::Key_F1, Qt::ShiftModifier);
                 QCOMPARE(desk.pendant.find<QLineEdit>("ledtWeldingName")->text(), "");
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
            {"the set is disabled",
             [](Desk &desk) {
                 desk.enable(false);
                 desk.enable(true);
             }},
            {"the set is registered again",
             [](Desk &desk) {
                 registerPhysicalButtons(&desk.pendant.app(), "other", {{"x", {}, {}, {}}}, {}, {});
             }},
            {"another window comes to the front",
             [](Desk &desk) {
                 QWidget other;
                 other.show();
                 QVERIFY(QTest::qWaitForWindowActive(&other));
                 other.close();
                 desk.window()->requestActivate();
                 QVERIFY(QTest::qWaitForWindowActive(desk.window()));
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
            {"minimised",
             [](Desk &desk) {
                 desk.pendant.window()->showMinimized();
                 desk.pendant.window()->showNormal();
             }},
            {"closed",
             [](Desk &desk) {
                 desk.pendant.window()->close();
                 desk.pendant.window()->show();
             }},
        };
        for (const auto &[name, event] : rows) {
            Desk desk;
            desk.fingerDown(1, pullBack);
            QTest::keyPress(desk.window(), Qt::Key_F4);
            QTest::keyPress(desk.window(), Qt::Key_F1);
            QCOMPARE(desk.wire(), "R");
            event(desk);
            QCOMPARE(desk.wire(), "R.");
            repeat(desk.window(), Qt::Key_F1);
            desk.touch(0).move(1, desk.place(wireFeed), desk.window());
            for (int key = 0; key < desk.keys()->count(); ++key)
                QVERIFY(!desk.keys()->isHeld(key));
            desk.fingerUp(1, wireFeed);
            QTest::keyRelease(desk.window(), Qt::Key_F1);
            QCOMPARE(desk.wire(), "R.");
            QCOMPARE(desk.told("cancel wire reverse success"), 1);
            QCOMPARE(desk.told("cancel wire feeding success"), 1);
            QTest::keyClick(desk.window(), Qt::Key_F5);
            QCOMPARE(desk.wire(), "R.R.");
        }
    }
    void theFirstStateIsTheLeafs()
    {
        testsupport::Setup setup;
        setup.keepFiles = true;
        TestPendant pendant(setup);
        const auto enabled = [&pendant] { return pendant.host()->keys()->isEnabled(wireFeed); };
        QVERIFY(!enabled());
        pendant.open("arcweldpackage");
        pendant.click("btn_connectSwitch");
        QVERIFY(enabled());
        setup.connects = false;
        pendant.restart(setup);
        QCOMPARE(enabled(), m("welmo.device.enable")->getBool());
        QVERIFY(pendant.waitConnected());
        QVERIFY(enabled());
    }
    void aRestartReleases()
    {
        Desk desk;
        QTest::keyPress(desk.window(), Qt::Key_F1);
        QString wire;
        QObject::connect(desk.pendant.window(), &QObject::destroyed, &desk.pendant.app(),
                         [&] { wire = desk.wire(); });
        desk.pendant.app().stop();
        QCOMPARE(wire, "F.");
        desk.pendant.app().start();
        QVERIFY(desk.pendant.waitConnected());
    }
    void repetitionsAreNoPresses()
    {
        Desk desk;
        QTest::keyPress(desk.window(), Qt::Key_F1);
        for (int i = 0; i < 10; ++i)
            repeat(desk.window(), Qt::Key_F1);
        QCOMPARE(desk.wire(), "F");
        desk.enable(false);
        desk.enable(true);
        QTest::keyPress(desk.window(), Qt::Key_F1); // a repetition that does not say so
        QTest::keyRelease(desk.window(), Qt::Key_F1);
        QCOMPARE(desk.wire(), "F.");
        QCOMPARE(desk.told("wire feeding success"), 1);
        QCOMPARE(desk.told("cancel wire feeding success"), 1);
    }
    void whoPressedReleases()
    {
        Desk desk;
        QTest::keyPress(desk.window(), Qt::Key_F1);
        desk.press(wireFeed);
        desk.lift(wireFeed);
        QCOMPARE(desk.wire(), "F");
        QTest::keyRelease(desk.window(), Qt::Key_F1);
        QCOMPARE(desk.wire(), "F.");
    }
    void otherKeysAreNoHandleKeys()
    {
        Desk desk;
        for (const auto modifier : {Qt::AltModifier, Qt::ControlModifier, Qt::ShiftModifier})
            QTest::keyClick(desk.window(), Qt::Key_F4, modifier);
        QTest::keyClick(desk.window(), Qt::Key_F8);
        QTest::keyClick(desk.window(), Qt::Key_Escape);
        QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), "test_run");
        QTest::keyClick(desk.window(), Qt::Key_F4);
        QTRY_COMPARE(m("welmo.welding_options.weld_mode")->getString(), "simu");
    }
    // The key stays down; only a fresh press moves wire again.
    void whatStopsTheWire()
    {
        const Rows<Faults::Fault> rows{
            {"link lost", Faults::Fault::LinkDown},
            {"welder error", Faults::Fault::WelderError},
        };
        for (const auto &[name, fault] : rows) {
            Desk desk;
            QTest::keyPress(desk.window(), Qt::Key_F1);
            desk.pendant.faults()->set(fault, true);
            QTRY_COMPARE(desk.wire(), "F.");
            QVERIFY(fault != Faults::Fault::LinkDown || desk.pendant.waitDisconnected());
            desk.pendant.faults()->clear();
            QVERIFY(desk.pendant.waitConnected());
            repeat(desk.window(), Qt::Key_F1);
            QTest::keyRelease(desk.window(), Qt::Key_F1);
            QCOMPARE(desk.wire(), "F.");
            QTest::keyClick(desk.window(), Qt::Key_F1);
            QCOMPARE(desk.wire(), "F.F.");
        }
    }
};

QTEST_MAIN(TestKeyColumn)
#include "tst_keycolumn.moc"
