#include "pendant/input/fieldpad.h"
#include "support/datarows.h"
#include "support/testpendant.h"

using namespace testsupport;
using welmo::pendant::FieldPad;

namespace {

/// A page of the package with fields to touch.
struct Fixture
{
    TestPendant pendant;
    QDoubleSpinBox *voltage;
    QLineEdit *annotation;

    Fixture()
    {
        pendant.openSubPage("Process Setting");
        voltage = pendant.find<QDoubleSpinBox>("sbxArconVoltage");
        annotation = pendant.find<QLineEdit>("ledt_arconAnnotaion");
        pendant.type("sbxArconVoltage", "20");
    }
    FieldPad *pad()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return pendant.window()->findChild<FieldPad *>();
    }
    void touch(QWidget *field) { finger::touch(field); }
    void touchNumber() { touch(voltage->findChild<QLineEdit *>()); }
    /// Touches the keys of the pad that show these texts.
    void strike(const QStringList &keys)
    {
        for (const QString &text : keys) {
            const auto all = pad()->findChildren<QPushButton *>();
            const auto key = std::find_if(all.begin(), all.end(),
                                          [&](auto *each) { return each->text() == text; });
            QVERIFY2(key != all.end(), qPrintable(text));
            touch(*key);
        }
    }
    QString says() { return pendant.find<QLabel>("lblPadFacts")->text(); }
    /// One notch of the wheel, over the middle of the widget.
    void turn(QWidget *widget)
    {
        const QPoint at = widget->mapTo(widget->window(), widget->rect().center());
        QWheelEvent notch(at, widget->window()->mapToGlobal(at), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget->window()->windowHandle(), &notch);
    }
};

} // namespace

/// Fields: the keypad and the keyboard on the screen, marks of edits, and the wheel.
class TestFields : public QObject
{
    Q_OBJECT
private slots:
    void aNumberOnTheKeypad_data()
    {
        addRows<QStringList, QString, double>(
            {{"point", {"1", "2", ".", "5", "Enter"}, "", 12.5},
             {"a wrong key", {"1", "3", "←", "2", "Enter"}, "", 12},
             {"back", {"1", "2", "Back"}, "", 20},
             {"too high", {"9", "0", "0", "0", "Enter"}, "9000 is out of range: 0 to ", 20}});
    }
    void aNumberOnTheKeypad()
    {
        const auto &[name, keys, refusal, value] = currentRow<QStringList, QString, double>();
        Fixture ui;
        ui.touchNumber();
        QVERIFY2(ui.says().startsWith("was 20"), qPrintable(ui.says()));
        QVERIFY(!ui.pad()->geometry().intersects(
            QRect(ui.voltage->mapTo(ui.pendant.window(), {}), ui.voltage->size())));
        ui.strike(keys);
        QCOMPARE(ui.voltage->value(), value);
        QCOMPARE(ui.pad() != nullptr, !refusal.isEmpty());
        QVERIFY(refusal.isEmpty() || ui.says().startsWith(refusal));
    }
    void aTextOnTheKeyboard()
    {
        Fixture ui;
        ui.touch(ui.annotation);
        ui.strike({"⇧", "R", "o", "o", "t", "#+=", "&&", "Enter"});
        QCOMPARE(ui.annotation->text(), "Root&");
        QVERIFY(!ui.pad());
        ui.touch(ui.annotation);
        ui.strike({"x", "Back"});
        QCOMPARE(ui.annotation->text(), "Root&");
    }
    void aPadGoesAway_data()
    {
        addRows<std::function<void(Fixture &)>>(
            {{"a physical key",
              [](Fixture &ui) { QTest::keyClick(ui.pendant.window()->windowHandle(), '7'); }},
             {"another field", [](Fixture &ui) { ui.touch(ui.pendant.find("sbxArconTime")); }},
             {"another page", [](Fixture &ui) { ui.pendant.open("messages"); }}});
    }
    void aPadGoesAway()
    {
        const auto &[name, act] = currentRow<std::function<void(Fixture &)>>();
        Fixture ui;
        ui.touchNumber();
        const QPointer<FieldPad> pad = ui.pad();
        QVERIFY(pad->isVisible());
        act(ui);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!pad);
    }
    void aMessageBoxDimsThePage()
    {
        TestPendant pendant;
        const auto lightness = [&] {
            return pendant.window()->grab().toImage().pixelColor(600, 740).lightness();
        };
        const int before = lightness();
        QMessageBox box(QMessageBox::Warning, "title", "question", QMessageBox::Ok,
                        pendant.window());
        box.open();
        QVERIFY(lightness() < before / 2);
        QCOMPARE(box.iconPixmap().isNull(), false);
        finger::touch(box.findChild<QToolButton *>("btnNo"));
        QVERIFY(!box.isVisible());
        QVERIFY(!box.clickedButton());
        QCOMPARE(lightness(), before);
    }
    // An edit marks its field, the button that saves it, and the sub-page's entry.
    void whatIsEditedShows()
    {
        Fixture ui;
        const auto isMarked = [](const QWidget *widget) {
            const auto *mark = widget->findChild<QWidget *>("editMark");
            return mark && mark->isVisible();
        };
        const auto entries = ui.pendant.find("wgtNav")->findChildren<QToolButton *>();
        const auto entry = std::find_if(entries.begin(), entries.end(), [](auto *each) {
            return each->text() == "Process Setting";
        });
        QVERIFY(entry != entries.end());
        auto *save = ui.pendant.find("btnArcOnSave");
        const auto marks = [&] {
            return QVector<bool>{isMarked(ui.voltage), isMarked(ui.annotation), isMarked(save)};
        };
        const auto icon = [&] { return (*entry)->icon().pixmap(48).toImage(); };
        ui.pendant.click("btnArcOnSave");
        const QImage plain = icon();
        QCOMPARE(marks(), QVector<bool>({false, false, false}));
        ui.pendant.type("sbxArconVoltage", "21");
        QCOMPARE(marks(), QVector<bool>({true, false, true}));
        QVERIFY(icon() != plain);
        ui.pendant.type("sbxArconVoltage", "20"); // the stored value
        QCOMPARE(marks(), QVector<bool>({false, false, false}));
        ui.annotation->setText("root");
        QCOMPARE(marks(), QVector<bool>({false, true, true}));
        ui.pendant.click("btnArcOnSave");
        QCOMPARE(marks(), QVector<bool>({false, false, false}));
        QCOMPARE(icon(), plain);
    }
    void aLockedPageSaysWhy()
    {
        TestPendant pendant;
        const auto *line = pendant.find<QLabel>("pndLock");
        auto *status = pendant.host()->helper()->status();
        status->setMode(tessa::ControllerStatus::Mode::Automatic);
        QVERIFY(!line->isVisible()); // Home is not locked
        pendant.openSubPage("Process Setting");
        QVERIFY(line->isVisible() && line->text().startsWith("Automatic mode"));
        status->setMode(tessa::ControllerStatus::Mode::Manual);
        QVERIFY(!line->isVisible());
    }
    void theWheel()
    {
        Fixture ui;
        auto *files = ui.pendant.find<QComboBox>("cbx_arconParamFileNumber");
        const int file = files->currentIndex();
        ui.annotation->setFocus();
        ui.turn(files);
        ui.turn(ui.voltage);
        files->setFocus();
        ui.turn(files);
        QCOMPARE(files->currentIndex(), file);
        QCOMPARE(ui.voltage->value(), 20.0);
        ui.voltage->setFocus();
        ui.turn(ui.voltage);
        QVERIFY(ui.voltage->value() < 20.0);
    }
};

QTEST_MAIN(TestFields)
#include "tst_fields.moc"
