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
#include "support/rows.h"

using tessa::BaseContentWidget;
using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;
using Creator = std::function<BaseContentWidget *(QWidget *)>;

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
    void lines()
    {
        const Creator arcon = form<ArconPropertyWidget>();
        const Creator arcoff = form<ArcoffPropertyWidget>();
        const Creator weave = form<WeaveOnPropertyWidget>();
        const Creator seg = form<SegOnPropertyWidget>();
        const Creator gas = form<DetectGasPropertyWidget>();
        const Rows<Creator, QString, QString, QString> rows{
            // a line, what is said of it, and what is written
            {"arcon", arcon, R"(ArcOn "ARCONDATA3", "arcdata40")", "",
             R"(ArcOn "arcondata3","arcdata40")"},
            {"arcon 41", arcon, R"(ArcOn "arcondata41","arcdata2")", "arcondata format error",
             R"(ArcOn "arcondata1","arcdata1")"},
            {"arcon second unknown", arcon, R"(ArcOn "arcondata2","arcdata99")",
             "arcdata format error", R"(ArcOn "arcondata2","arcdata1")"},
            {"arcoff", arcoff, R"(ArcOff "ArcOffData7")", "", R"(ArcOff "arcoffdata7")"},
            {"arcoff unquoted", arcoff, "ArcOff arcoffdata7", "arcoffdata format error",
             R"(ArcOff "arcoffdata1")"},
            {"weave", weave, R"(WeaveOn "weavedata7")", "", R"(WeaveOn "weavedata7")"},
            {"weave 41", weave, R"(WeaveOn "weavedata41")", "weavedata format error",
             R"(WeaveOn "weavedata1")"},
            {"seg", seg, R"(SegOn "segdata40")", "", R"(SegOn "segdata40")"},
            {"seg unquoted", seg, "SegOn segdata4", "segdata format error", R"(SegOn "segdata1")"},
            {"weaveoff", form<WeaveOffPropertyWidget>(), "WeaveOff", "", "WeaveOff"},
            {"weaveoff blank", form<WeaveOffPropertyWidget>(), "WeaveOff ",
             "weaveoff tl command format error", "WeaveOff"},
            {"segoff", form<SegOffPropertyWidget>(), "segoff", "segoff tl command format error",
             "SegOff"},
            {"gas", gas, "DetectGas 1.5", "", "DetectGas 1.5"},
            {"gas short", gas, "DetectGas 0.05", "detectgas time format error", "DetectGas 0.1"},
            {"feed", form<FeedOnWirePropertyWidget>(), "FeedOnWire 2", "", "FeedOnWire 2"},
            {"back short", form<FeedBackWirePropertyWidget>(), "FeedBackWire 0.05", "",
             "FeedBackWire 0.1"},
            {"back negative", form<FeedBackWirePropertyWidget>(), "FeedBackWire -1",
             "feedbackwire time format error", "FeedBackWire 0.1"},
        };
        for (const auto &[name, create, line, said, written] : rows) {
            FormHost host;
            BaseContentWidget *form = create(host.window());
            host.takeMessages();
            form->FillWith(line);
            const QString messages = host.takeMessages().join('\n');
            QVERIFY2(said.isEmpty() ? messages.isEmpty() : messages.startsWith("error: " + said),
                     qPrintable(messages));
            QVERIFY(!messages.contains('\n'));
            QCOMPARE(form->ToString(), written);
            // What a form writes, a form reads and writes again, unchanged.
            BaseContentWidget *again = create(host.window());
            again->FillWith(written);
            QCOMPARE(again->ToString(), written);
        }
    }
    /// Opening a line reads its files, creates what the controller lacks, and shows the values.
    void arconReadsItsFiles()
    {
        FormHost host;
        ArconPropertyWidget form(nullptr);
        QVariantMap file = host.stored("arc_weld.arcon_param", "arcondata1").toMap();
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
        QVERIFY(!arcon->isHidden() && weld->isHidden());
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
