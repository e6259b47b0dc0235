#include "pando/frame.h"
#include "pendant/window/handlekey.h"
#include "support/datarows.h"
#include "support/testpendant.h"

using namespace testsupport;

namespace {

constexpr int wireFeed = 0;
constexpr int pullBack = 4;
const QPoint onThePage{600, 400};

/// A pendant whose keys work, and what fingers and the keyboard do to them.
struct Fixture
{
    TestPendant pendant{withoutTime()};
    QTouchDevice *screen = QTest::createTouchDevice();
    QWindow *window = pendant.window()->windowHandle();
    tessa::PhysicalKeys *keys = pendant.host()->keys();

    Fixture()
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
    /// What the keyboard sends while F1 stays down.
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
    QString wire() const { return pendant.wire(); }
    int told(const QString &text)
    {
        int times = 0;
        for (const auto &entry : pendant.messages())
            times += entry.text == text ? 1 : 0;
        return times;
    }
};

using Act = std::function<void(Fixture &)>;

} // namespace

/// The column of physical keys: what is held, and what the wire does by the controller's journal.
class TestKeyColumn : public QObject
{
    Q_OBJECT
private slots:
    void theColumnFollowsTheKeys()
    {
        Fixture ui;
        QCOMPARE(ui.faces().size(), 7);
        auto *face = ui.faces().constFirst();
        const QImage before = face->grab().toImage();
        ui.press(wireFeed);
        QVERIFY(face->grab().toImage() != before);
        ui.lift(onThePage);
        QVERIFY(face->grab().toImage() == before);
        ui.enable(false);
        QVERIFY(!face->isEnabled());
    }
    void wireMovesWhileHeld_data()
    {
        addRows<QString, Act>(
            {{"mouse, twice, as fast as a double click, lifted elsewhere", "F.F.",
              [](Fixture &ui) {
                  for (const char *wire : {"F", "F.F"}) {
                      ui.press(wireFeed);
                      QTest::mouseMove(ui.window, onThePage);
                      QCOMPARE(ui.wire(), wire);
                      ui.lift(onThePage);
                  }
              }},
             {"a release that went elsewhere", "F.",
              [](Fixture &ui) {
                  ui.press(wireFeed);
                  QMouseEvent move(QEvent::MouseMove, onThePage, Qt::NoButton, Qt::NoButton, {});
                  QCoreApplication::sendEvent(ui.window, &move);
              }},
             // Both keys move the one wire; the second finds it moving and does nothing.
             {"two fingers", "F.R.",
              [](Fixture &ui) {
                  ui.fingerDown(1, wireFeed);
                  ui.fingerDown(2, pullBack, 1);
                  QVERIFY(ui.keys->isHeld(wireFeed) && ui.keys->isHeld(pullBack));
                  ui.fingerUp(1, wireFeed, 2);
                  QVERIFY(!ui.keys->isHeld(wireFeed) && ui.keys->isHeld(pullBack));
                  ui.fingerUp(2, pullBack);
                  ui.fingerDown(3, pullBack);
                  ui.fingerUp(3, pullBack);
              }},
             {"touch cancelled", "F.",
              [](Fixture &ui) {
                  ui.fingerDown(1, wireFeed);
                  QTouchEvent cancel(QEvent::TouchCancel, ui.screen);
                  QCoreApplication::sendEvent(ui.pendant.find("pndKeys"), &cancel);
                  QCOMPARE(ui.wire(), "F.");
                  ui.fingerUp(1, wireFeed);
              }},
             {"keyboard, while a field has the focus", "F.",
              [](Fixture &ui) {
                  pando::frame().rightSide->switchTo("welmo.page");
                  pando::frame().rightSide->show();
                  ui.pendant.click("ledtWeldingName");
                  ui.keyDown();
                  QCOMPARE(ui.wire(), "F");
                  QTest::keyRelease(ui.window, Qt::Key_F1, Qt::ShiftModifier);
                  QCOMPARE(ui.pendant.find<QLineEdit>("ledtWeldingName")->text(), "");
              }},
             {"keyboard, repeating", "F.",
              [](Fixture &ui) {
                  ui.keyDown();
                  for (int i = 0; i < 10; ++i)
                      ui.repeat();
                  QCOMPARE(ui.wire(), "F");
                  QCOMPARE(ui.told("wire feeding success"), 1);
                  ui.enable(false);
                  ui.enable(true);
                  ui.keyDown(); // a repetition that is not marked as one
                  ui.keyUp();
                  QCOMPARE(ui.told("cancel wire feeding success"), 1);
              }},
             {"keyboard and mouse: who pressed releases", "F.",
              [](Fixture &ui) {
                  ui.keyDown();
                  ui.press(wireFeed);
                  ui.lift(onThePage);
                  QCOMPARE(ui.wire(), "F");
                  ui.keyUp();
              }},
             {"what means something else", "", [](Fixture &ui) {
                  QTest::keyClick(ui.window, Qt::Key_F1, Qt::ControlModifier);
                  QTest::keyClick(ui.window, Qt::Key_F8);
                  QTest::mouseClick(ui.window, Qt::RightButton, {}, ui.place(wireFeed));
              }}});
    }
    // NOLINTNEXTLINE(readability-function-size): a table
    void wireMovesWhileHeld()
    {
        const auto &[name, wire, act] = currentRow<QString, Act>();
        Fixture ui;
        act(ui);
        QCOMPARE(ui.wire(), wire);
    }
    void everyPressIsReleased_data()
    {
        addRows<Act>({{"another window comes to the front",
                       [](Fixture &ui) {
                           QWidget other;
                           other.show();
                           QVERIFY(QTest::qWaitForWindowActive(&other));
                           other.close();
                           ui.window->requestActivate();
                           QVERIFY(QTest::qWaitForWindowActive(ui.window));
                       }},
                      {"a dialog opens",
                       [](Fixture &ui) {
                           QWidget dialog;
                           dialog.setWindowModality(Qt::ApplicationModal);
                           dialog.show();
                           QCOMPARE(ui.wire(), "R."); // before the window system reports it
                       }},
                      {"hidden", [](Fixture &ui) {
                           ui.pendant.window()->hide();
                           QCOMPARE(ui.wire(), "R.");
                           ui.pendant.window()->show();
                       }}});
    }
    // Only a new press moves the wire again; what the keyboard repeats does not.
    void everyPressIsReleased()
    {
        const auto &[name, event] = currentRow<Act>();
        Fixture ui;
        ui.fingerDown(1, pullBack);
        ui.keyDown(Qt::Key_F4);
        ui.keyDown(Qt::Key_F1);
        QCOMPARE(ui.wire(), "R");
        event(ui);
        QCOMPARE(ui.wire(), "R.");
        ui.repeat();
        ui.keyDown(); // a repetition that is not marked as one
        ui.touch(0).move(1, ui.place(wireFeed), ui.window);
        QVERIFY(!ui.isAnyHeld());
        ui.fingerUp(1, wireFeed);
        ui.keyUp(Qt::Key_F1);
        QCOMPARE(ui.wire(), "R.");
        QCOMPARE(ui.told("cancel wire reverse success"), 1);
        QCOMPARE(ui.told("cancel wire feeding success"), 1);
        QTest::keyClick(ui.window, Qt::Key_F5);
        QCOMPARE(ui.wire(), "R.R.");
    }
    void aRestartReleases()
    {
        Fixture ui;
        ui.keyDown();
        QString wire;
        QObject::connect(ui.pendant.window(), &QObject::destroyed, &ui.pendant.app(),
                         [&] { wire = ui.wire(); });
        ui.pendant.app().stop();
        QCOMPARE(wire, "F.");
        ui.pendant.app().start();
        QVERIFY(ui.pendant.waitConnected());
        ui.window = ui.pendant.window()->windowHandle();
        ui.keys = ui.pendant.host()->keys();
        ui.enable(true);
        ui.keyDown(); // F1 has not come up yet
        QVERIFY(!ui.isAnyHeld());
        ui.keyUp();
        ui.keyDown();
        QVERIFY(ui.isAnyHeld());
    }
    void theFirstStateIsTheLeafs()
    {
        Fixture ui; // switches the device on
        Setup setup;
        setup.keepFiles = true;
        setup.connects = false;
        ui.pendant.restart(setup);
        QVERIFY(ui.pendant.host()->keys()->isEnabled(wireFeed));
        QVERIFY(m("welmo.device.enable")->getBool());
    }
};

QTEST_MAIN(TestKeyColumn)
#include "tst_keycolumn.moc"
