#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QtTest>

#include "instructions/moveinsertwidget.h"
#include "instructions/wmovecinsertwidget.h"
#include "instructions/wmovecpropertywidget.h"
#include "instructions/wmovelinsertwidget.h"
#include "instructions/wmovelpropertywidget.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

const QString linearBefore = R"(WMoveL p2,v20,z5,torch1,fixture1,"weavedata3")";
const QString circularBefore = R"(WMoveC p2,Offs(p3,1,2,3),v20,z5,torch1,fixture1,"weavedata3")";

std::unique_ptr<tessa::BaseContentWidget> propertyForm(FormHost &host, const QString &line)
{
    if (line.startsWith("WMoveC"))
        return std::make_unique<WMoveCPropertyWidget>(host.window());
    return std::make_unique<WMoveLPropertyWidget>(host.window());
}

QString randomNumber(QRandomGenerator &random)
{
    const int exponent = random.bounded(-8, 9);
    const double value = (random.generateDouble() - 0.5) * std::pow(10.0, exponent);
    return QString::number(random.bounded(6) ? value : 0.0, 'g', 6);
}

QString randomPoint(QRandomGenerator &random)
{
    const QString name = "p" + QString::number(1 + random.bounded(8));
    const int count = 3 * random.bounded(3);
    QStringList items{name};
    for (int i = 0; i < count; ++i)
        items.append(randomNumber(random));
    const QString list = items.join(',');
    return count == 0 ? list : (count == 3 ? "Offs(" : "Reltool(") + list + ')';
}

} // namespace

/// The four forms of the welding moves: what they read, what they write, what they say.
class tst_MoveForms : public QObject
{
    Q_OBJECT
private slots:
    void reads()
    {
        const QString kept = R"(,fixture1,"weavedata3")"; // of the line before
        const Rows<QString, QString> rows{
            {"plain", R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata40")",
             R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata40")"},
            {"no work object", "WMoveL p4,v50,fine,tool0", "WMoveL p4,v50,fine,tool0" + kept},
            {"no weave", "WMoveL p4,v50,fine,tool0,wobj0",
             R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata3")"},
            {"weave off", R"(WMoveL p4,v50,fine,tool0,wobj0,"NULL")",
             "WMoveL p4,v50,fine,tool0,wobj0"},
            {"another word", "WMoveX  p4 , v50,fine ,tool0", "WMoveL p4,v50,fine,tool0" + kept},
            {"offset", "WMoveL Offs(p4, 10, -5.5, 0), v50, fine, tool0",
             "WMoveL Offs(p4,10,-5.5,0),v50,fine,tool0" + kept},
            {"Reltool", "WMoveL Reltool(p4,0,0,-15,0,30,1e-05),v50,fine,tool0",
             "WMoveL Reltool(p4,0,0,-15,0,30,1e-05),v50,fine,tool0" + kept},
            {"more digits", "WMoveL Offs(p4,1234.5678,0.000123456789,-0),v50,fine,tool0",
             "WMoveL Offs(p4,1234.57,0.000123457,0),v50,fine,tool0" + kept},
            {"circular", R"(WMoveC p6,p7,v50,fine,tool0,wobj0,"weavedata1")",
             R"(WMoveC p6,p7,v50,fine,tool0,wobj0,"weavedata1")"},
            {"circular, both kinds", "WMoveC RelTool(p6,1,2,3,4,5,6),Offs(p7,1,2,3),v50,fine,tool0",
             "WMoveC Reltool(p6,1,2,3,4,5,6),Offs(p7,1,2,3),v50,fine,tool0" + kept},
        };
        for (const auto &[name, line, written] : rows) {
            FormHost host;
            const auto form = propertyForm(host, line);
            form->FillWith(line.startsWith("WMoveC") ? circularBefore : linearBefore);
            form->FillWith(line);
            QCOMPARE(form->ToString(), written);
            QCOMPARE(host.takeMessages(), QStringList());
        }
    }
    // What cannot be read stays as it was shown before.
    void refuses()
    {
        const QString four = "speed format error,zone format error,tool format error,"
                             "wobj format error";
        const Rows<QString, QString, QString, int> rows{
            // a line, what is said, what is written; the parts that the debug line counts
            {"4 tokens", "WMoveL p4,v50,fine", "wmovel tl command format error", linearBefore, 4},
            {"8 tokens", R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata1",x)",
             "wmovel tl command format error", linearBefore, 8},
            {"nothing", "", "wmovel tl command format error", linearBefore, 0},
            {"circular, 5 tokens", "WMoveC p6,p7,v50,fine", "wmovec tl command format error",
             circularBefore, 5},
            {"tool", "WMoveL p4,v50,fine,tool1", "tool format error",
             R"(WMoveL p4,v50,fine,torch1,fixture1,"weavedata3")", -1},
            {"weave without quotes", "WMoveL p4,v50,fine,tool0,wobj0,weavedata1",
             "weavedata format error", R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata3")", -1},
            {"weave in the work object's place", R"(WMoveL p4,v50,fine,tool0,"weavedata1")",
             "wobj format error", R"(WMoveL p4,v50,fine,tool0,fixture1,"weavedata3")", -1},
            {"another case", R"(WMoveL p4,V50,Fine,Tool0,WOBJ0,"Weavedata1")",
             four + ",weavedata format error", R"(WMoveL p4,v20,z5,torch1,fixture1,"weavedata3")",
             -1},
            {"decimal speed", "WMoveL p4,v12.5,fine,tool0", four,
             R"(WMoveL p4,v20,z5,torch1,fixture1,"weavedata3")", -1},
            {"number", "WMoveL Offs(p4,x,2,3),v50,fine,tool0", "point format error",
             R"(WMoveL Offs(p4,0,2,3),v50,fine,tool0,fixture1,"weavedata3")", -1},
            {"function", "WMoveC p6,Off(p7,1,2,3),v50,fine,tool0", "point format error",
             R"(WMoveC p6,p7,v50,fine,tool0,fixture1,"weavedata3")", -1},
        };
        for (const auto &[name, line, said, written, parts] : rows) {
            FormHost host;
            const auto form = propertyForm(host, line);
            form->FillWith(line.startsWith("WMoveC") ? circularBefore : linearBefore);
            if (parts >= 0)
                QTest::ignoreMessage(QtDebugMsg, qPrintable(QString("part size: %1").arg(parts)));
            form->FillWith(line);
            QStringList expected;
            for (const QString &text : said.split(','))
                expected.append("error: " + text + " [" + form->objectName() + ']');
            QCOMPARE(host.takeMessages(), expected);
            QCOMPARE(form->ToString(), written);
        }
    }
    // What is written is read, and written again unchanged.
    void writtenLinesComeBack()
    {
        FormHost host;
        QRandomGenerator random(20);
        for (const QString word : {"WMoveL ", "WMoveC "}) {
            const auto form = propertyForm(host, word);
            for (int i = 0; i < 200; ++i) {
                const QString points = word == "WMoveL "
                    ? randomPoint(random)
                    : randomPoint(random) + ',' + randomPoint(random);
                const QString line = word + points + ",v50,fine,tool0,wobj0";
                form->FillWith(line);
                QCOMPARE(form->ToString(), line);
            }
        }
        QCOMPARE(host.takeMessages(), QStringList());
    }
    void editedBoxCounts()
    {
        FormHost host;
        WMoveLPropertyWidget form(host.window());
        auto *target = child(&form, "wgtTarget");
        auto *offsets = child(target, "wgtOffsets");
        form.FillWith("WMoveL Offs(p4,0.0001,2e+07,3),v50,fine,tool0,wobj0");
        QCOMPARE(child<QDoubleSpinBox>(offsets, "sbxX")->text(), "0.000");
        child<QDoubleSpinBox>(offsets, "sbxZ")->setValue(4.25); // the others keep their digits
        QCOMPARE(form.ToString(), "WMoveL Offs(p4,0.0001,2e+07,4.25),v50,fine,tool0,wobj0");
        form.FillWith("WMoveL p4,v50,fine,tool0,wobj0");
        QVERIFY(!child(offsets, "sbxX")->isEnabled());
        child<QRadioButton>(target, "rbtnOffs")->click();
        QVERIFY(child(offsets, "sbxZ")->isEnabled() && !child(offsets, "sbxA")->isEnabled());
        child<QDoubleSpinBox>(offsets, "sbxY")->setValue(-2.5);
        QCOMPARE(form.ToString(), "WMoveL Offs(p4,0,-2.5,0),v50,fine,tool0,wobj0");
        child<QRadioButton>(target, "rbtnReltool")->click();
        QVERIFY(child(offsets, "sbxC")->isEnabled());
        child<QDoubleSpinBox>(offsets, "sbxC")->setValue(90);
        QCOMPARE(form.ToString(), "WMoveL Reltool(p4,0,-2.5,0,0,0,90),v50,fine,tool0,wobj0");
        child<QRadioButton>(target, "rbtnPlain")->click();
        QCOMPARE(form.ToString(), "WMoveL p4,v50,fine,tool0,wobj0");
    }
    void typesWithADecimalPoint()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        FormHost host;
        WMoveLPropertyWidget form(host.window());
        form.FillWith("WMoveL Offs(p4,1234.5,0,0),v50,fine,tool0,wobj0");
        auto *offsets = child(child(&form, "wgtTarget"), "wgtOffsets");
        auto *box = child<QDoubleSpinBox>(offsets, "sbxY");
        box->selectAll();
        QTest::keyClicks(box, "2.25");
        QCOMPARE(form.ToString(), "WMoveL Offs(p4,1234.5,2.25,0),v50,fine,tool0,wobj0");
        QLocale::setDefault(before);
    }
    void insertsWhatIsActive()
    {
        const std::vector<std::pair<const char *, const char *>> active{{"torch1", "wobj0"},
                                                                        {"tool0", "fixture1"}};
        for (const auto &[tool, wobj] : active) {
            FormHost host;
            m("orbo.toolpage.tool")->set(nullptr, QString(), tool);
            m("orbo.toolpage.wobj")->set(nullptr, QString(), wobj);
            WMoveLInsertWidget linear(host.window());
            QCOMPARE(linear.ToString(), QString("WMoveL p1,v5,fine,%1,%2").arg(tool, wobj));
            WMoveCInsertWidget circular(host.window());
            circular.FillWith("WMoveC p6,p7,v50,fine,tool0,wobj0");
            QCOMPARE(circular.ToString(), QString("WMoveC p1,p1,v5,fine,%1,%2").arg(tool, wobj));
            // An existing line without a work object means none of those that happen to be active.
            WMoveLPropertyWidget property(host.window());
            property.FillWith("WMoveL p4,v50,fine,tool0");
            QCOMPARE(property.ToString(), "WMoveL p4,v50,fine,tool0,wobj0");
            QCOMPARE(host.takeMessages(), QStringList());
        }
    }
    void insertExpressions()
    {
        FormHost host;
        WMoveCInsertWidget form(host.window());
        auto *panel = child<MoveInsertWidget>(&form, "MoveInsertWidget");
        const auto box = [panel](const char *edit, const char *name) {
            return child<QDoubleSpinBox>(child(panel, edit), name);
        };
        panel->onBtnAuxOffsClicked();
        panel->onBtnTargetReltoolClicked();
        box("wgtAux", "sbxX")->setValue(0.5);
        box("wgtTarget", "sbxA")->setValue(-7);
        const QString rest = ",v5,fine,torch1,wobj0";
        QCOMPARE(form.ToString(), "WMoveC Offs(p1,0.5,0,0),RelTool(p1,0,0,0,-7,0,0)" + rest);
        panel->onBtnAuxReltoolClicked();
        panel->onBtnTargetOffsClicked();
        box("wgtTarget", "sbxX")->setValue(3);
        panel->resetSbxAux();
        QCOMPARE(form.ToString(), "WMoveC RelTool(p1,0,0,0,0,0,0),Offs(p1,3,0,0)" + rest);
        panel->resetSbxTarget();
        QCOMPARE(form.ToString(), "WMoveC RelTool(p1,0,0,0,0,0,0),Offs(p1,0,0,0)" + rest);
        child<QComboBox>(child(panel, "wgtTarget"), "cbxPoint")->setCurrentIndex(4);
        panel->refresh();
        QCOMPARE(form.ToString(), "WMoveC RelTool(p1,0,0,0,0,0,0),Offs(p5,0,0,0)" + rest);
    }
    void fitsUnderAFinger()
    {
        for (const char *language : {"en", "zh_CN"}) {
            FormHost host(FormHost::Connected, language);
            auto *theme = host.host().helper()->themeManager();
            host.window()->setStyleSheet(theme->genStyleSheet(":/welmo/render/sub_page.json"));
            const std::vector<tessa::BaseContentWidget *> forms{
                new WMoveLInsertWidget(host.window()), new WMoveCInsertWidget(host.window()),
                new WMoveLPropertyWidget(host.window()), new WMoveCPropertyWidget(host.window())};
            host.window()->show();
            for (auto *form : forms) {
                const QSize least = form->minimumSizeHint();
                QVERIFY2(least.width() <= 860 && least.height() <= 560,
                         qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
                form->resize(860, 560);
                form->show();
                QCoreApplication::processEvents();
                int touched = 0;
                for (const QWidget *widget : form->findChildren<QWidget *>()) {
                    const bool touchable = qobject_cast<const QAbstractButton *>(widget)
                        || qobject_cast<const QComboBox *>(widget)
                        || qobject_cast<const QDoubleSpinBox *>(widget);
                    if (!touchable || !widget->isVisible()
                        || widget->objectName().startsWith("qt_"))
                        continue;
                    QVERIFY2(widget->width() >= 45 && widget->height() >= 45,
                             qPrintable(widget->objectName()));
                    ++touched;
                }
                QVERIFY(touched >= 15);
            }
        }
    }
};

QTEST_MAIN(tst_MoveForms)
#include "tst_moveforms.moc"
