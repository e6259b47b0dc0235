#include "instructions/forms/weavedatadialog.h"
#include "instructions/move/moveforms.h"
#include "instructions/move/moveinsertwidget.h"
#include "instructions/move/moveparamwidget.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;

namespace {

const QString linear = R"(WMoveL p2,v20,z5,torch1,fixture1,"weavedata3")";
const QString circular = R"(WMoveC p2,Offs(p3,1,2,3),v20,z5,torch1,fixture1,"weavedata3")";
const QString kept = R"(,fixture1,"weavedata3")";
const QString four = "speed format error|zone format error|tool format error|wobj format error";

} // namespace

/// The four forms of the welding moves: what they read, write and say.
class tst_MoveForms : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QLocale::setDefault(QLocale::German); } // forms must not use it
    void lines_data()
    {
        addRows<QString, QString, QString>({
            // a line, what is written, what is said
            {"whole", R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata40")",
             R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata40")", ""},
            {"another word", "WMoveX  p4 , v50,fine ,tool0", "WMoveL p4,v50,fine,tool0" + kept, ""},
            {"no weave", "WMoveL p4,v50,fine,tool0,wobj0",
             R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata3")", ""},
            {"weave off", R"(WMoveL p4,v50,fine,tool0,wobj0,"NULL")",
             "WMoveL p4,v50,fine,tool0,wobj0", ""},
            {"small", "WMoveL Reltool(p4,0,0,-15,0,30,1e-05),v50,fine,tool0",
             "WMoveL Reltool(p4,0,0,-15,0,30,1e-05),v50,fine,tool0" + kept, ""},
            {"more digits", "WMoveL Offs(p4,1234.5678,0.000123456789,-0),v50,fine,tool0",
             "WMoveL Offs(p4,1234.57,0.000123457,0),v50,fine,tool0" + kept, ""},
            {"circular", "WMoveC RelTool(p6,1,2,3,4,5,6),Offs(p7,1,2,3),v50,fine,tool0",
             "WMoveC Reltool(p6,1,2,3,4,5,6),Offs(p7,1,2,3),v50,fine,tool0" + kept, ""},
            {"4 parts", "WMoveL p4,v50,fine", linear, "wmovel tl command format error"},
            {"5 parts", "WMoveC p6,p7,v50,fine", circular, "wmovec tl command format error"},
            {"weave in the work object's place", R"(WMoveL p4,v50,fine,tool0,"weavedata1")",
             "WMoveL p4,v50,fine,tool0" + kept, "wobj format error"},
            {"another case", R"(WMoveL p4,V50,Fine,Tool0,WOBJ0,"Weavedata1")",
             "WMoveL p4,v20,z5,torch1" + kept, four + "|weavedata format error"},
            {"number", "WMoveL Offs(p4,x,2,3),v50,fine,tool0",
             "WMoveL Offs(p4,0,2,3),v50,fine,tool0" + kept, "point format error"},
            {"function", "WMoveC p6,Off(p7,1,2,3),v50,fine,tool0",
             "WMoveC p6,p7,v50,fine,tool0" + kept, "point format error"},
        });
    }
    // Where a line says nothing, or something wrong, the form keeps what it showed.
    void lines()
    {
        const auto &[name, line, written, said] = currentRow<QString, QString, QString>();
        FormHost host;
        std::unique_ptr<tessa::BaseContentWidget> form;
        if (line.startsWith("WMoveC"))
            form = std::make_unique<WMoveCPropertyWidget>(host.window());
        else
            form = std::make_unique<WMoveLPropertyWidget>(host.window());
        form->FillWith(line.startsWith("WMoveC") ? circular : linear);
        if (name.endsWith("parts"))
            QTest::ignoreMessage(QtDebugMsg, "part size: " + name.left(1));
        form->FillWith(line);
        QStringList expected;
        for (const QString &text : said.split('|', Qt::SkipEmptyParts))
            expected.append("error: " + text + " [" + form->objectName() + ']');
        QCOMPARE(host.takeMessages(), expected);
        QCOMPARE(form->ToString(), written);
    }
    void editedBoxCounts()
    {
        FormHost host;
        WMoveLPropertyWidget form(host.window());
        auto *target = child(&form, "wgtTarget");
        auto *offsets = child(target, "wgtOffsets");
        const auto box = [offsets](const char *name) {
            return child<QDoubleSpinBox>(offsets, name);
        };
        form.FillWith("WMoveL Offs(p4,0.0001,2e+07,3),v50,fine,tool0,wobj0");
        QCOMPARE(box("sbxX")->text(), "0.00010"); // so small, it still shows digits
        box("sbxZ")->selectAll(); // the other boxes keep their digits
        QTest::keyClicks(box("sbxZ"), "4.25");
        QCOMPARE(form.ToString(), "WMoveL Offs(p4,0.0001,2e+07,4.25),v50,fine,tool0,wobj0");
        form.FillWith("WMoveL p4,v50,fine,tool0,wobj0");
        QVERIFY(!box("sbxX")->isEnabled());
        child<QRadioButton>(target, "rbtnOffs")->click();
        QVERIFY(box("sbxZ")->isEnabled() && !box("sbxA")->isEnabled());
        box("sbxY")->setValue(-2.5);
        QCOMPARE(form.ToString(), "WMoveL Offs(p4,0,-2.5,0),v50,fine,tool0,wobj0");
        child<QRadioButton>(target, "rbtnReltool")->click();
        box("sbxC")->setValue(90);
        QCOMPARE(form.ToString(), "WMoveL Reltool(p4,0,-2.5,0,0,0,90),v50,fine,tool0,wobj0");
    }
    void insertsWhatIsActive()
    {
        FormHost host;
        m("orbo.toolpage.tool")->set(nullptr, QString(), "tool0");
        m("orbo.toolpage.wobj")->set(nullptr, QString(), "fixture1");
        WMoveLInsertWidget linear(host.window());
        QCOMPARE(linear.ToString(), "WMoveL p1,v5,fine,tool0,fixture1");
        // In an existing line, no work object means wobj0, whichever is active.
        WMoveLPropertyWidget property(host.window());
        property.FillWith("WMoveL p4,v50,fine,tool0");
        QCOMPARE(property.ToString(), "WMoveL p4,v50,fine,tool0,wobj0");
        QCOMPARE(host.takeMessages(), QStringList());
    }
    void insertExpressions()
    {
        FormHost host;
        WMoveCInsertWidget form(host.window());
        auto *panel = child<MoveInsertWidget>(&form, "MoveInsertWidget");
        const auto set = [panel](const char *edit, const char *name, double value) {
            child<QDoubleSpinBox>(child(panel, edit), name)->setValue(value);
        };
        const QString rest = ",v5,fine,torch1,wobj0";
        panel->onBtnAuxOffsClicked();
        panel->onBtnTargetReltoolClicked();
        set("wgtAux", "sbxX", 0.5);
        set("wgtTarget", "sbxA", -7);
        QCOMPARE(form.ToString(), "WMoveC Offs(p1,0.5,0,0),RelTool(p1,0,0,0,-7,0,0)" + rest);
        panel->onBtnAuxReltoolClicked();
        panel->onBtnTargetOffsClicked();
        set("wgtTarget", "sbxX", 3);
        panel->resetSbxAux();
        QCOMPARE(form.ToString(), "WMoveC RelTool(p1,0,0,0,0,0,0),Offs(p1,3,0,0)" + rest);
    }
    void namelessEntriesAreNotPreselected()
    {
        FormHost host;
        for (const char *list : {"point._list", "tool.system_list", "tool._list"})
            m("orbo.project." + QString(list))
                ->set(nullptr, QString(),
                      QVariantList{QVariantMap{{"id", "x"}}, QVariantMap{{"name", "named"}}});
        QCOMPARE(WMoveLInsertWidget(host.window()).ToString(), "WMoveL named,v5,fine,named,wobj0");
        m("orbo.project.point._list")->set(nullptr, QString(), QVariantList{QVariantMap()});
        QCOMPARE(WMoveLInsertWidget(host.window()).ToString(), "WMoveL ,v5,fine,named,wobj0");
    }
    // Another pendant changes the project.
    void openFormsFollowTheProject()
    {
        FormHost host;
        WMoveLInsertWidget insert(host.window());
        WMoveLPropertyWidget edit(host.window());
        edit.FillWith("WMoveL p4,v20,fine,torch1,wobj0");
        auto *shown = child<QDoubleSpinBox>(child(&edit, "wgtPosition"), "sbxX");
        QVariantList points = host.stored("orbo.project", "point._list").toList();
        points.append(QVariantMap{{"id", "p9"}, {"name", "p9"}});
        points[3] = QVariantMap{{"id", "p4"}, {"name", "p4"}, {"tool", "tool0"}};
        QCOMPARE(host.store("orbo.project", "point._list", points), 0);
        QCOMPARE(host.store("orbo.toolpage", {}, QVariantMap{{"tool", "tool0"}, {"wobj", "wobj0"}}),
                 0);
        for (const QWidget *form : {static_cast<QWidget *>(&insert), static_cast<QWidget *>(&edit)})
            QTRY_VERIFY(child<QComboBox>(form, "cbxPoint")->findText("p9") > 0);
        QTRY_COMPARE(insert.ToString(), "WMoveL p1,v5,fine,tool0,wobj0");
        QCOMPARE(edit.ToString(), "WMoveL p4,v20,fine,torch1,wobj0");
        QCOMPARE(shown->value(), 0.0); // the new p4 has no position
        QVERIFY(!child(&edit, "btnTaught")->parentWidget()->isHidden());
        QCOMPARE(host.takeMessages(), QStringList());
        QCOMPARE(host.store("orbo.project", "tool._list", QVariantList()), 0);
        QTRY_COMPARE(edit.ToString(), "WMoveL p4,v20,fine,tool0,wobj0");
        QCOMPARE(host.takeMessages(),
                 QStringList("warning: torch1 is no longer in the project; tool0 is chosen "
                             "[WMoveLPropertyWidget]"));
    }
    void opensOneDetailsDialog()
    {
        FormHost host;
        MoveParamWidget panel(host.window());
        host.window()->show();
        panel.show();
        panel.onBtnDetailClicked();
        QVERIFY(panel.findChildren<QDialog *>().isEmpty()); // no file is chosen
        for (const char *file : {"weavedata7", "weavedata8"}) {
            panel.setWeaveData(QString("\"%1\"").arg(file));
            child<QPushButton>(&panel, "btnWeaveDataDetail")->click();
            panel.onBtnDetailClicked();
            const auto dialogs = panel.findChildren<WeaveDataDialog *>();
            QCOMPARE(dialogs.size(), 1);
            QVERIFY(dialogs.first()->isVisible() && !dialogs.first()->isModal());
            QCOMPARE(dialogs.first()->getCurrentWeaveData(), file);
            QVERIFY(!child(&panel, "cbxWeaveData")->isEnabled());
            panel.hide(); // as when another page is shown
            QVERIFY(dialogs.first()->isHidden());
            panel.show();
            QVERIFY(dialogs.first()->isVisible());
            dialogs.first()->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
};

QTEST_MAIN(tst_MoveForms)
#include "tst_moveforms.moc"
