#include <QTabWidget>
#include <QTest>
#include <functional>

#include "instructions/arcoffpropertywidget.h"
#include "instructions/arconpropertywidget.h"
#include "instructions/segonpropertywidget.h"
#include "instructions/timedwidgets.h"
#include "instructions/weavedatadialog.h"
#include "instructions/weaveonpropertywidget.h"
#include "instructions/weavewidget.h"
#include "instructions/wordwidgets.h"
#include "support/formhost.h"

using tessa::BaseContentWidget;
using testsupport::child;
using testsupport::FormHost;
using Creator = std::function<BaseContentWidget *(QWidget *)>;
Q_DECLARE_METATYPE(Creator)

namespace {

template<typename Form>
Creator form()
{
    return [](QWidget *parent) { return new Form(parent); };
}

} // namespace

/// The property forms of the instructions that name files, a time, or nothing.
class TestInstructionForms : public QObject
{
    Q_OBJECT

private slots:
    void lines_data()
    {
        QTest::addColumn<Creator>("create");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("message"); // empty: accepted
        QTest::addColumn<QString>("written");
        const auto row = [](const char *name, Creator create, const char *line, const char *message,
                            const char *written) {
            QTest::addRow("%s", name)
                << create << QString(line) << QString(message) << QString(written);
        };
        const Creator arcon = form<ArconPropertyWidget>();
        const char *fresh = R"(ArcOn "arcondata1","arcdata1")";
        row("arcon", arcon, R"(ArcOn "ARCONDATA3", "arcdata40")", "",
            R"(ArcOn "arcondata3","arcdata40")");
        row("arcon 41", arcon, R"(ArcOn "arcondata41","arcdata2")", "arcondata format error",
            fresh);
        row("arcon one", arcon, R"(ArcOn "arcondata2")", "arcon tl command format error", fresh);
        row("arcon unquoted", arcon, R"(ArcOn "arcondata2",arcdata2)", "arcdata format error",
            fresh);
        row("arcon second unknown", arcon, R"(ArcOn "arcondata2","arcdata99")",
            "arcdata format error", R"(ArcOn "arcondata2","arcdata1")");
        const Creator arcoff = form<ArcoffPropertyWidget>();
        row("arcoff", arcoff, R"(ArcOff "ArcOffData7")", "", R"(ArcOff "arcoffdata7")");
        row("arcoff unquoted", arcoff, "ArcOff arcoffdata7", "arcoffdata format error",
            R"(ArcOff "arcoffdata1")");
        row("arcoff two", arcoff, R"(ArcOff "arcoffdata7","x")", "arcoff tl command format error",
            R"(ArcOff "arcoffdata1")");
        const Creator weave = form<WeaveOnPropertyWidget>();
        row("weave", weave, R"(WeaveOn "weavedata7")", "", R"(WeaveOn "weavedata7")");
        row("weave unquoted", weave, "WeaveOn weavedata7", "weavedata format error",
            R"(WeaveOn "weavedata1")");
        row("weave 41", weave, R"(WeaveOn "weavedata41")", "weavedata format error",
            R"(WeaveOn "weavedata1")");
        row("weave case", weave, R"(WeaveOn "WEAVEDATA7")", "weavedata format error",
            R"(WeaveOn "weavedata1")");
        row("weave three", weave, R"(WeaveOn "weavedata7" "x")", "weaveon tl command format error",
            R"(WeaveOn "weavedata1")");
        const Creator seg = form<SegOnPropertyWidget>();
        row("seg", seg, R"(SegOn "segdata40")", "", R"(SegOn "segdata40")");
        row("seg unquoted", seg, "SegOn segdata4", "segdata format error", R"(SegOn "segdata1")");
        row("seg alone", seg, "SegOn", "segon tl command format error", R"(SegOn "segdata1")");
        row("weaveoff", form<WeaveOffPropertyWidget>(), "WeaveOff", "", "WeaveOff");
        row("weaveoff blank", form<WeaveOffPropertyWidget>(), "WeaveOff ",
            "weaveoff tl command format error", "WeaveOff");
        row("segoff", form<SegOffPropertyWidget>(), "segoff", "segoff tl command format error",
            "SegOff");
        const Creator gas = form<DetectGasPropertyWidget>();
        row("gas", gas, "DetectGas 1.5", "", "DetectGas 1.5");
        row("gas six digits", gas, "DetectGas 123456.7", "", "DetectGas 123457");
        row("gas short", gas, "DetectGas 0.05", "detectgas time format error", "DetectGas 0.1");
        row("gas word", gas, "DetectGas abc", "detectgas time format error", "DetectGas 0.1");
        row("gas two", gas, "DetectGas 1 2", "detectgas tl command format error", "DetectGas 0.1");
        row("feed", form<FeedOnWirePropertyWidget>(), "FeedOnWire 2", "", "FeedOnWire 2");
        row("feed comma", form<FeedOnWirePropertyWidget>(), "FeedOnWire 1,5",
            "feedonwire tl command format error", "FeedOnWire 0.1");
        row("back short", form<FeedBackWirePropertyWidget>(), "FeedBackWire 0.05", "",
            "FeedBackWire 0.1");
        row("back negative", form<FeedBackWirePropertyWidget>(), "FeedBackWire -1",
            "feedbackwire time format error", "FeedBackWire 0.1");
    }

    void lines()
    {
        QFETCH(Creator, create);
        QFETCH(QString, line);
        QFETCH(QString, message);
        QFETCH(QString, written);
        FormHost host;
        BaseContentWidget *form = create(host.window());
        host.takeMessages();
        form->FillWith(line);
        const QStringList messages = host.takeMessages();
        if (message.isEmpty()) {
            QVERIFY2(messages.isEmpty(), qPrintable(messages.join('\n')));
        } else {
            QCOMPARE(messages.size(), 1);
            QVERIFY2(messages.first().startsWith("error: " + message),
                     qPrintable(messages.first()));
        }
        QCOMPARE(form->ToString(), written);
        // What a form writes, a form reads and writes again, unchanged.
        BaseContentWidget *again = create(host.window());
        again->FillWith(written);
        QCOMPARE(again->ToString(), written);
    }

    /// Opening a line reads its files, creates what the controller lacks, and shows the values.
    void arconReadsItsFiles()
    {
        FormHost host;
        QVariantMap file = host.stored("arc_weld.arcon_param", "arcondata1").toMap();
        ArconPropertyWidget form(nullptr);
        file = host.stored("arc_weld.arcon_param", "arcondata1").toMap();
        file["name"] = "arcondata5";
        file["current"] = 155.5;
        QCOMPARE(host.store("arc_weld.arcon_param", "arcondata5", file), 0);
        form.FillWith(R"(ArcOn "arcondata5","arcdata6")");
        QCOMPARE(child<QDoubleSpinBox>(&form, "sbxArconCurrent")->value(), 155.5);
        QVERIFY(host.stored("arc_weld.weld_param", "arcdata6").isValid());
    }

    void tabsToggleTheOtherFold()
    {
        FormHost host;
        ArconPropertyWidget form(nullptr);
        auto *tabs = form.findChild<QTabWidget *>();
        const auto *arcon = child(&form, "wgt_arconAdvancedParam");
        const auto *weld = child(&form, "wgt_weldAdvancedParam");
        tabs->setCurrentIndex(1);
        QVERIFY(!arcon->isHidden());
        QVERIFY(weld->isHidden());
        tabs->setCurrentIndex(0);
        QVERIFY(!weld->isHidden());
        tabs->setCurrentIndex(1);
        QVERIFY(arcon->isHidden());
    }

    /// The dialog edits the named file and no other, and closes after a save that went through.
    void weaveDialog()
    {
        FormHost host;
        WeaveDataDialog dialog;
        dialog.initUI("weavedata9");
        QCOMPARE(dialog.getCurrentWeaveData(), QString("weavedata9"));
        QVERIFY(!child(&dialog, "cbxWeaveFileNumber")->isEnabled());
        const auto *editor = child(&dialog, "wgtWeaveData");
        QCOMPARE(dialog.width(), editor->sizeHint().width() + 40);
        QVERIFY(dialog.height() <= 486);
        dialog.show();
        child<QDoubleSpinBox>(&dialog, "sbxWeaveAmplitude")->setValue(100);
        child<QDoubleSpinBox>(&dialog, "sbxWeaveLength_Frequency")->setValue(5);
        child<QAbstractButton>(&dialog, "btnSave")->click(); // refused by the product rule
        QVERIFY(dialog.isVisible());
        QVERIFY(!dialog.isSaveClicked());
        child<QDoubleSpinBox>(&dialog, "sbxWeaveAmplitude")->setValue(2);
        child<QAbstractButton>(&dialog, "btnSave")->click();
        QVERIFY(!dialog.isVisible());
        QVERIFY(dialog.isSaveClicked());
    }
};

QTEST_MAIN(TestInstructionForms)
#include "tst_instructionforms.moc"
