#include <QDirIterator>
#include <QDoubleSpinBox>
#include <QTabWidget>
#include <QTest>

#include "instructions/forms/arcoffpropertywidget.h"
#include "instructions/forms/arconpropertywidget.h"
#include "instructions/forms/segonpropertywidget.h"
#include "instructions/forms/weavedatadialog.h"
#include "instructions/forms/weavewidget.h"
#include "instructions/forms/wordwidgets.h"
#include "instructions/move/movepropertypointwidget.h"
#include "instructions/tlarcweld.h"
#include "pendant/program/hostproject.h"
#include "settings/weavefunctionpage.h"
#include "support/formhost.h"
#include "support/rows.h"
#include "tl/checker.h"
#include "tl/parse.h"

using tessa::BaseContentWidget;
using tessa::TlManager;
using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

const QStringList instructions{"ArcOn",    "ArcOff",     "WMoveL",       "WMoveC",   "WeaveOn",
                               "WeaveOff", "FeedOnWire", "FeedBackWire", "DetectGas"};

} // namespace

/// The package's entries in the program editor, and the forms that they open.
class TestInstructionForms : public QObject
{
    Q_OBJECT

    std::unique_ptr<FormHost> m_host;

    BaseContentWidget *propertyForm(const QString &word)
    {
        if (word.startsWith("SegO")) // has no place in the editor's tables
            return word == "SegOn"
                ? static_cast<BaseContentWidget *>(new SegOnPropertyWidget(m_host->window()))
                : new SegOffPropertyWidget(m_host->window());
        return TlManager::getTlManager()->propertyWidgetCreators.value(word)(m_host->window());
    }

private slots:
    void init() { m_host = std::make_unique<FormHost>(); }
    void cleanup() { m_host.reset(); }

    void tables()
    {
        TlManager *manager = TlManager::getTlManager();
        manager->instructionNames.append("MoveJ");
        manager->groupMembers["INS_GROUP_ARCON"].append("Another");
        {
            TlArcWeldDefine define(nullptr);
        }
        QCOMPARE(manager->instructionNames, QStringList{"MoveJ"} + instructions);
        QCOMPARE(manager->groupMembers.value("INS_GROUP_ARCON"),
                 QStringList{"Another"} + instructions);
        QCOMPARE(manager->instructionGroups,
                 (QList<QPair<QString, QString>>{{"Arc On", "INS_GROUP_ARCON"}}));
        QCOMPARE(manager->syntaxTemplates.value("WMoveC"),
                 "WMoveC AuxPoint, ToPoint, Speed, Zone, Tool, [Wobj], [\"weavedata\"]");
        QCOMPARE(manager->insertWidgetCreators.size(),
                 instructions.size()); // SegOn has no form there
        for (const QString &name : instructions) {
            QCOMPARE(manager->cTexts.value("c_" + name, "none"), QString());
            QCOMPARE(manager->sTexts.value("s_" + name, "none"), QString());
            QCOMPARE(manager->instructionTexts.value(name, "none"), QString());
            auto *insert = manager->insertWidgetCreators.value(name)(m_host->window());
            const QString line = insert->ToString();
            insert->FillWith("nonsense, that no form reads");
            QCOMPARE(insert->ToString(), line);
            QCOMPARE(m_host->takeMessages(), QStringList());
            QString prefix = name;
            prefix.replace("ArcO", "Arco");
            QCOMPARE(insert->metaObject()->className(), qPrintable(prefix + "InsertWidget"));
            for (BaseContentWidget *form : {insert, propertyForm(name)}) {
                QCOMPARE(form->parentWidget(), m_host->window());
                QVERIFY(form->CheckInsert() && form->CheckReplace());
                QVERIFY(form->ToJsonValue().isNull() && form->GetLabel().isEmpty());
            }
        }
    }
    void whatIsWritten()
    {
        const Rows<QString> rows{
            {R"(ArcOn "ARCONDATA3", "arcdata40")", R"(ArcOn "arcondata3","arcdata40")"},
            {R"(ArcOn "arcondata41","arcdata2")", R"(ArcOn "arcondata1","arcdata1")"},
            {R"(ArcOn "arcondata2","arcdata99")", R"(ArcOn "arcondata2","arcdata1")"},
            {R"(SegOn "segdata40")", R"(SegOn "segdata40")"},
            {"WeaveOff ", "WeaveOff"},
            {"SegOff;", "SegOff"},
            {"DetectGas 1.5", "DetectGas 1.5"},
            {"DetectGas 0.05", "DetectGas 0.1"},
            {"FeedBackWire 0.05", "FeedBackWire 0.1"},
        };
        TlArcWeldDefine define(nullptr);
        for (const auto &[line, written] : rows) {
            BaseContentWidget *form = propertyForm(welmo::tl::parse(line).word.text);
            form->FillWith(line);
            QCOMPARE(form->ToString(), written);
        }
    }
    // The forms say of a line what the program checker says.
    void whatIsSaid()
    {
        QStringList lines{"ArcOn  \"ARCONDATA3\" , \"arcdata40\"",
                          "ArcOn arcondata1,arcdata99",
                          "ArcOff \"arcoffdata1\";",
                          "SegOn segdata4",
                          "SegOff;",
                          "WeaveOn \"NULL\"",
                          "FeedOnWire inf",
                          "FeedBackWire -1",
                          "DetectGas 0.05",
                          "WMoveL RELTOOL(p1,1,2,3,4,5,6),v10,fine,torch1,wobj0",
                          "WMoveL \"p1\",v10,fine,torch1",
                          "WMoveL p1,v10,fine,torch1,wobj0,\"NULL\"",
                          "WMoveC p7,p8,\"v10\",V10,Torch1,wobj0,\"\""};
        QDirIterator programs(EXAMPLES, {"*.tl"});
        while (programs.hasNext()) {
            QFile file(programs.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            lines += QString::fromUtf8(file.readAll()).split('\n');
        }
        TlArcWeldDefine define(nullptr);
        const welmo::tl::Checker checker(welmo::pendant::hostProject());
        for (const QString &line : qAsConst(lines)) {
            const welmo::tl::ParsedLine parsed = welmo::tl::parse(line);
            if (!parsed.instruction || parsed.instruction->standing == welmo::tl::Standing::Host)
                continue;
            m_host->takeMessages();
            const std::unique_ptr<BaseContentWidget> form(propertyForm(parsed.word.text));
            form->FillWith(parsed.code());
            QStringList expected; // "no such point" is a warning, and without words of its own
            for (const welmo::tl::Finding &finding : checker.checkLine(parsed, 0)) {
                if (finding.message)
                    expected.append(finding.message);
            }
            expected.sort();
            QVERIFY2(m_host->takeErrors() == expected,
                     qPrintable(line + ": " + expected.join(", ")));
        }
    }
    /// Opening a line reads its files, creates what the controller lacks, and shows the values.
    void arconReadsItsFiles()
    {
        const QString node = "arc_weld.arcon_param";
        ArconPropertyWidget form(nullptr);
        QVariantMap file = m_host->stored(node, "arcondata1").toMap();
        file["name"] = "arcondata5";
        file["current"] = 155.5;
        QCOMPARE(m_host->store(node, "arcondata5", file), 0);
        form.FillWith(R"(ArcOn "arcondata5","arcdata6")");
        QCOMPARE(child<QDoubleSpinBox>(&form, "sbxArconCurrent")->value(), 155.5);
        QVERIFY(m_host->stored("arc_weld.weld_param", "arcdata6").isValid());
    }
    // Other parts of a pendant reach the forms by these names.
    void slotsByName()
    {
        const QString group = "onCurrentModeChanged(int) onVoltageModeChanged(int) "
                              "onParamFileNumberChanged(int) onSaveButtonClicked() "
                              "onCancelButtonClicked() ";
        const QString weave = "onFileNumberChanged(int) onStandardTypeChanged(int) "
                              "onPatternChanged(int) onElevationTypeChanged(int) "
                              "onStayTypeChanged(int) switchStayTime() onSaveButtonClicked()";
        const QVector<QPair<const QMetaObject *, QString>> rows{
            {&ArconPropertyWidget::staticMetaObject,
             group
                 + "onArconLeadTimeEditFinished() onArcBreakOptionChanged(int) onTabChanged(int)"},
            {&ArcoffPropertyWidget::staticMetaObject, group + "onArcOffDataFoldButtonClicked()"},
            {&WeaveWidget::staticMetaObject, weave},
            {&WeaveFunctionPage::staticMetaObject, weave},
            {&MovePropertyPointWidget::staticMetaObject, "onTabChanged(int) stopMove()"},
        };
        for (const auto &[meta, names] : rows) {
            for (const QString &name : names.split(' ', Qt::SkipEmptyParts))
                QVERIFY2(meta->indexOfSlot(name.toLatin1()) >= 0, qPrintable(name));
        }
    }
    void tabsToggleTheOtherFold()
    {
        ArconPropertyWidget form(nullptr);
        const auto *arcon = child(&form, "wgt_arconAdvancedParam");
        const auto *weld = child(&form, "wgt_weldAdvancedParam");
        for (const bool shown : {true, false}) {
            form.findChild<QTabWidget *>()->setCurrentIndex(1);
            QCOMPARE(arcon->isHidden(), !shown);
            form.findChild<QTabWidget *>()->setCurrentIndex(0);
            QCOMPARE(weld->isHidden(), !shown);
        }
    }
    /// Whoever looks a name up reports it, as operators of the message page expect.
    void whoReportsAName()
    {
        TlArcWeldDefine define(nullptr);
        const Rows<QString> rows{
            {R"(WeaveOn "weavedata41")", "weavedata format error [wgtWeaveData]"},
            {R"(WeaveOn weavedata1)", "weavedata format error [WeaveOnPropertyWidget]"},
            {R"(ArcOff "arcoffdata41")", "arcoffdata format error [ArcOffPropertyWidget]"},
        };
        for (const auto &[line, said] : rows) {
            const std::unique_ptr<BaseContentWidget> form(propertyForm(line.split(' ').first()));
            m_host->takeMessages();
            form->FillWith(line);
            QCOMPARE(m_host->takeMessages(), QStringList("error: " + said));
        }
    }
    /// The dialog edits the named file and no other, and closes after a save that went through.
    void weaveDialog()
    {
        WeaveDataDialog dialog;
        dialog.initUI("weavedata9");
        QVERIFY(!child(&dialog, "cbxWeaveFileNumber")->isEnabled());
        QCOMPARE(dialog.width(), child(&dialog, "wgtWeaveData")->sizeHint().width() + 40);
        QVERIFY(dialog.height() <= 486);
        dialog.show();
        child<QDoubleSpinBox>(&dialog, "sbxWeaveLength_Frequency")->setValue(5);
        for (const bool refused : {true, false}) { // by the product rule
            child<QDoubleSpinBox>(&dialog, "sbxWeaveAmplitude")->setValue(refused ? 100 : 2);
            child<QAbstractButton>(&dialog, "btnSave")->click();
            QCOMPARE(dialog.isVisible(), refused);
            QCOMPARE(dialog.isSaveClicked(), !refused);
        }
    }
};

QTEST_MAIN(TestInstructionForms)
#include "tst_instructionforms.moc"
