#include "instructions/forms/arcoffpropertywidget.h"
#include "instructions/forms/arconpropertywidget.h"
#include "instructions/forms/segonpropertywidget.h"
#include "instructions/forms/weavedatadialog.h"
#include "instructions/forms/wordwidgets.h"
#include "instructions/tlarcweld.h"
#include "pendant/program/hostproject.h"
#include "support/datarows.h"
#include "support/formhost.h"
#include "tl/checker.h"
#include "tl/parse.h"

using tessa::BaseContentWidget;
using tessa::TlManager;
using namespace testsupport;

/// The package's entries in the program editor, and the forms that they open.
class TestInstructionForms : public QObject
{
    Q_OBJECT

    std::unique_ptr<FormHost> m_host;

    BaseContentWidget *propertyForm(const QString &word)
    {
        if (word.startsWith("SegO")) // the editor does not offer it
            return word == "SegOn"
                ? static_cast<BaseContentWidget *>(new SegOnPropertyWidget(m_host->window()))
                : new SegOffPropertyWidget(m_host->window());
        return TlManager::getTlManager()->propertyWidgetCreators.value(word)(m_host->window());
    }

private slots:
    void init() { m_host = std::make_unique<FormHost>(); }
    void cleanup() { m_host.reset(); }

    // They are added to the tables of the editor, which keep their other entries.
    void everyInstructionHasItsForms()
    {
        TlManager *manager = TlManager::getTlManager();
        manager->instructionNames.append("MoveJ");
        manager->groupMembers["INS_GROUP_ARCON"].append("Another");
        const TlArcWeldDefine define(nullptr);
        const QStringList names = manager->instructionNames.mid(1);
        QCOMPARE(manager->instructionNames.first(), "MoveJ");
        QCOMPARE(names.join(' '),
                 "ArcOn ArcOff WMoveL WMoveC WeaveOn WeaveOff FeedOnWire FeedBackWire DetectGas");
        QCOMPARE(manager->groupMembers.value("INS_GROUP_ARCON"), QStringList("Another") + names);
        QCOMPARE(manager->insertWidgetCreators.size(), names.size());
        for (const QString &name : names) {
            auto *insert = manager->insertWidgetCreators.value(name)(m_host->window());
            const QString line = insert->ToString();
            insert->FillWith("nonsense, that no form reads");
            QCOMPARE(insert->ToString(), line);
            QCOMPARE(m_host->takeMessages(), QStringList());
            QVERIFY(insert->CheckInsert() && propertyForm(name)->CheckReplace());
        }
    }
    void whatIsWritten_data()
    {
        addRows<QString>(
            {{R"(ArcOn "ARCONDATA3", "arcdata40")", R"(ArcOn "arcondata3","arcdata40")"},
             {R"(ArcOn "arcondata41","arcdata2")", R"(ArcOn "arcondata1","arcdata1")"},
             {R"(ArcOn "arcondata2","arcdata99")", R"(ArcOn "arcondata2","arcdata1")"},
             {R"(SegOn "segdata40")", R"(SegOn "segdata40")"},
             {"WeaveOff ", "WeaveOff"},
             {"SegOff;", "SegOff"},
             {"DetectGas 1.5", "DetectGas 1.5"},
             {"DetectGas 0.05", "DetectGas 0.1"},
             {"FeedBackWire 0.05", "FeedBackWire 0.1"}});
    }
    void whatIsWritten()
    {
        const TlArcWeldDefine define(nullptr);
        const auto &[line, written] = currentRow<QString>();
        BaseContentWidget *form = propertyForm(welmo::tl::parse(line).word.text);
        form->FillWith(line);
        QCOMPARE(form->ToString(), written);
    }
    void whoReportsAName_data()
    {
        addRows<QString>(
            {{R"(WeaveOn "weavedata41")", "weavedata format error [wgtWeaveData]"},
             {"SegOn segdata1", "segdata format error [SegOnPropertyWidget]"},
             {R"(WeaveOn weavedata1)", "weavedata format error [WeaveOnPropertyWidget]"},
             {R"(ArcOff "arcoffdata41")", "arcoffdata format error [ArcOffPropertyWidget]"}});
    }
    // The widget that looks a name up reports a wrong one.
    void whoReportsAName()
    {
        const TlArcWeldDefine define(nullptr);
        const auto &[line, said] = currentRow<QString>();
        const std::unique_ptr<BaseContentWidget> form(propertyForm(line.split(' ').first()));
        m_host->takeMessages();
        form->FillWith(line);
        QCOMPARE(m_host->takeMessages(), QStringList("error: " + said));
    }
    // The dialog edits only the named file, and closes after a save that succeeded.
    void weaveDialog()
    {
        WeaveDataDialog dialog;
        dialog.initUI("weavedata9");
        QVERIFY(!child(&dialog, "cbxWeaveFileNumber")->isEnabled());
        QCOMPARE(dialog.width(), child(&dialog, "wgtWeaveData")->sizeHint().width() + 40);
        QVERIFY(dialog.height() <= 486);
        dialog.show();
        child<QDoubleSpinBox>(&dialog, "sbxWeaveLength_Frequency")->setValue(5);
        for (const bool refused : {true, false}) { // frequency times amplitude is too large
            child<QDoubleSpinBox>(&dialog, "sbxWeaveAmplitude")->setValue(refused ? 100 : 2);
            child<QAbstractButton>(&dialog, "btnSave")->click();
            QCOMPARE(dialog.isVisible(), refused);
            QCOMPARE(dialog.isSaveClicked(), !refused);
        }
    }
};

QTEST_MAIN(TestInstructionForms)
#include "tst_instructionforms.moc"
