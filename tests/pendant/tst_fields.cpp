#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "pendant/input/fieldpad.h"
#include "support/rows.h"
#include "support/testpendant.h"

using testsupport::Rows;
using testsupport::TestPendant;
using welmo::pendant::FieldPad;

namespace {

/// A page of the package with fields to touch.
struct Desk
{
    TestPendant pendant;
    QDoubleSpinBox *voltage;
    QLineEdit *annotation;

    Desk()
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
    void touch(QWidget *field) { testsupport::finger::touch(field); }
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

/// Fields worked by touch and by mouse: keys on the screen, and the wheel.
class TestFields : public QObject
{
    Q_OBJECT
private slots:
    void aNumberOnTheKeypad()
    {
        const Rows<QStringList, QString, double> rows{
            {"point", {"1", "2", ".", "5", "Enter"}, "", 12.5},
            {"a wrong key", {"1", "3", "←", "2", "Enter"}, "", 12},
            {"back", {"1", "2", "Back"}, "", 20},
            {"too high", {"9", "0", "0", "0", "Enter"}, "9000 is out of range: 0 to ", 20},
        };
        for (const auto &[name, keys, refusal, value] : rows) {
            Desk desk;
            desk.touchNumber();
            QVERIFY2(desk.says().startsWith("was 20"), qPrintable(desk.says()));
            QVERIFY(!desk.pad()->geometry().intersects(
                QRect(desk.voltage->mapTo(desk.pendant.window(), {}), desk.voltage->size())));
            desk.strike(keys);
            QCOMPARE(desk.voltage->value(), value);
            QCOMPARE(desk.pad() != nullptr, !refusal.isEmpty());
            QVERIFY(refusal.isEmpty() || desk.says().startsWith(refusal));
        }
    }
    void aTextOnTheKeyboard()
    {
        Desk desk;
        desk.touch(desk.annotation);
        desk.strike({"⇧", "R", "o", "o", "t", "#+=", "&&", "Enter"});
        QCOMPARE(desk.annotation->text(), "Root&");
        QVERIFY(!desk.pad());
        desk.touch(desk.annotation);
        desk.strike({"x", "Back"});
        QCOMPARE(desk.annotation->text(), "Root&");
    }
    void aPadGoesAway()
    {
        const Rows<std::function<void(Desk &)>> rows{
            {"a physical key",
             [](Desk &desk) { QTest::keyClick(desk.pendant.window()->windowHandle(), '7'); }},
            {"another field", [](Desk &desk) { desk.touch(desk.pendant.find("sbxArconCurrent")); }},
            {"another page", [](Desk &desk) { desk.pendant.open("messages"); }},
        };
        for (const auto &[name, act] : rows) {
            Desk desk;
            desk.touchNumber();
            const QPointer<FieldPad> pad = desk.pad();
            QVERIFY(pad->isVisible());
            act(desk);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(!pad);
        }
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
        box.close();
        QCOMPARE(lightness(), before);
    }
    void theWheel()
    {
        Desk desk;
        auto *files = desk.pendant.find<QComboBox>("cbx_arconParamFileNumber");
        const int file = files->currentIndex();
        desk.annotation->setFocus();
        desk.turn(files);
        desk.turn(desk.voltage);
        files->setFocus();
        desk.turn(files);
        QCOMPARE(files->currentIndex(), file);
        QCOMPARE(desk.voltage->value(), 20.0);
        desk.voltage->setFocus();
        desk.turn(desk.voltage);
        QVERIFY(desk.voltage->value() < 20.0);
    }
};

QTEST_MAIN(TestFields)
#include "tst_fields.moc"
