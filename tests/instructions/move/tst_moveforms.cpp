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

using testsupport::child;
using testsupport::FormHost;

namespace {

const QString linearBefore = R"(WMoveL p2,v20,z5,torch1,fixture1,"weavedata3")";
const QString circularBefore = R"(WMoveC p2,Offs(p3,1,2,3),v20,z5,torch1,fixture1,"weavedata3")";

std::unique_ptr<tessa::BaseContentWidget> propertyForm(FormHost &host, const QString &line)
{
    if (line.startsWith("WMoveC"))
        return std::make_unique<WMoveCPropertyWidget>(host.window());
    return std::make_unique<WMoveLPropertyWidget>(host.window());
}

QString errorFrom(const QString &line, const QString &text)
{
    return "error: " + text
        + (line.startsWith("WMoveC") ? " [WMoveCPropertyWidget]" : " [WMoveLPropertyWidget]");
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
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void writtenLinesComeBack();
    void keepsDigitsThatItDoesNotShow();
    void editedBoxCounts();
    void typesWithADecimalPoint();
    void insertsWhatIsActive_data();
    void insertsWhatIsActive();
    void insertExpressions();
    void contract();
    void fitsUnderAFinger_data();
    void fitsUnderAFinger();
};

void tst_MoveForms::reads_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("written");
    const auto row = [](const char *name, const QString &line, const QString &written) {
        QTest::newRow(name) << line << written;
    };
    const QString kept = R"(,fixture1,"weavedata3")"; // of the line before
    row("plain", "WMoveL p4,v50,fine,tool0,wobj0,\"weavedata40\"",
        "WMoveL p4,v50,fine,tool0,wobj0,\"weavedata40\"");
    row("no work object", "WMoveL p4,v50,fine,tool0", "WMoveL p4,v50,fine,tool0" + kept);
    row("no weave", "WMoveL p4,v50,fine,tool0,wobj0",
        "WMoveL p4,v50,fine,tool0,wobj0,\"weavedata3\"");
    row("weave off", "WMoveL p4,v50,fine,tool0,wobj0,\"NULL\"", "WMoveL p4,v50,fine,tool0,wobj0");
    row("blanks", "  WMoveL  p4 , v50,fine ,tool0,  wobj0",
        "WMoveL p4,v50,fine,tool0,wobj0,"
        "\"weavedata3\"");
    row("another word", "WMoveX p4,v50,fine,tool0", "WMoveL p4,v50,fine,tool0" + kept);
    row("offset", "WMoveL Offs(p4, 10, -5.5, 0), v50, fine, tool0",
        "WMoveL Offs(p4,10,-5.5,0),v50,fine,tool0" + kept);
    row("Reltool", "WMoveL Reltool(p4,0,0,-15,0,30,1e-05),v50,fine,tool0",
        "WMoveL Reltool(p4,0,0,-15,0,30,1e-05),v50,fine,tool0" + kept);
    row("RelTool", "WMoveL RelTool(p4,1,2,3,4,5,6),v50,fine,tool0",
        "WMoveL Reltool(p4,1,2,3,4,5,6),v50,fine,tool0" + kept);
    row("more digits", "WMoveL Offs(p4,1234.5678,0.000123456789,-0),v50,fine,tool0",
        "WMoveL Offs(p4,1234.57,0.000123457,0),v50,fine,tool0" + kept);
    row("circular", "WMoveC p6,p7,v50,fine,tool0,wobj0,\"weavedata1\"",
        "WMoveC p6,p7,v50,fine,tool0,wobj0,\"weavedata1\"");
    row("circular, shortest", "WMoveC p6,p7,v50,fine,tool0", "WMoveC p6,p7,v50,fine,tool0" + kept);
    row("circular, no weave", "WMoveC p6,p7,v50,fine,tool0,wobj0",
        "WMoveC p6,p7,v50,fine,tool0,wobj0,\"weavedata3\"");
    row("circular, both kinds", "WMoveC RelTool(p6,1,2,3,4,5,6),Offs(p7,1,2,3),v50,fine,tool0",
        "WMoveC Reltool(p6,1,2,3,4,5,6),Offs(p7,1,2,3),v50,fine,tool0" + kept);
}

void tst_MoveForms::reads()
{
    QFETCH(QString, line);
    QFETCH(QString, written);
    FormHost host;
    const auto form = propertyForm(host, line);
    form->FillWith(line.startsWith("WMoveC") ? circularBefore : linearBefore);
    form->FillWith(line);
    QCOMPARE(form->ToString(), written);
    form->FillWith(written);
    QCOMPARE(form->ToString(), written);
    QCOMPARE(host.takeMessages(), QStringList());
}

void tst_MoveForms::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("said");
    QTest::addColumn<QString>("written"); // empty: as before
    QTest::addColumn<int>("parts"); // 0: no debug line
    const auto row = [](const char *name, const QString &line, const QStringList &said,
                        const QString &written, int parts = 0) {
        QStringList errors;
        for (const QString &text : said)
            errors.append(errorFrom(line, text));
        QTest::newRow(name) << line << errors << written << parts;
    };
    const QString wmovel = "wmovel tl command format error";
    const QString wmovec = "wmovec tl command format error";
    row("4 tokens", "WMoveL p4,v50,fine", {wmovel}, {}, 4);
    row("8 tokens", "WMoveL p4,v50,fine,tool0,wobj0,\"weavedata1\",x", {wmovel}, {}, 8);
    row("nothing", "", {wmovel}, {}, -1);
    row("circular, 5 tokens", "WMoveC p6,p7,v50,fine", {wmovec}, {}, 5);
    row("circular, 9 tokens", "WMoveC p6,p7,v50,fine,tool0,wobj0,\"weavedata1\",x", {wmovec}, {},
        9);
    row("speed", "WMoveL p4,v51,fine,tool0", {"speed format error"},
        R"(WMoveL p4,v20,fine,tool0,fixture1,"weavedata3")");
    row("zone", "WMoveL p4,v50,z51,tool0", {"zone format error"},
        R"(WMoveL p4,v50,z5,tool0,fixture1,"weavedata3")");
    row("tool", "WMoveL p4,v50,fine,tool1", {"tool format error"},
        R"(WMoveL p4,v50,fine,torch1,fixture1,"weavedata3")");
    row("work object", "WMoveL p4,v50,fine,tool0,wobj1", {"wobj format error"},
        R"(WMoveL p4,v50,fine,tool0,fixture1,"weavedata3")");
    row("weave", "WMoveL p4,v50,fine,tool0,wobj0,\"weavedata41\"", {"weavedata format error"},
        R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata3")");
    row("weave without quotes", "WMoveL p4,v50,fine,tool0,wobj0,weavedata1",
        {"weavedata format error"}, R"(WMoveL p4,v50,fine,tool0,wobj0,"weavedata3")");
    row("weave in the work object's place", "WMoveL p4,v50,fine,tool0,\"weavedata1\"",
        {"wobj format error"}, R"(WMoveL p4,v50,fine,tool0,fixture1,"weavedata3")");
    row("another case", "WMoveL p4,V50,Fine,Tool0,WOBJ0,\"Weavedata1\"",
        {"speed format error", "zone format error", "tool format error", "wobj format error",
         "weavedata format error"},
        R"(WMoveL p4,v20,z5,torch1,fixture1,"weavedata3")");
    row("decimal speed", "WMoveL p4,v12.5,fine,tool0",
        {"speed format error", "zone format error", "tool format error", "wobj format error"},
        R"(WMoveL p4,v20,z5,torch1,fixture1,"weavedata3")");
    row("number", "WMoveL Offs(p4,x,2,3),v50,fine,tool0", {"point format error"},
        R"(WMoveL Offs(p4,0,2,3),v50,fine,tool0,fixture1,"weavedata3")");
    row("function", "WMoveC p6,Off(p7,1,2,3),v50,fine,tool0", {"point format error"},
        R"(WMoveC p6,p7,v50,fine,tool0,fixture1,"weavedata3")");
}

void tst_MoveForms::refuses()
{
    QFETCH(QString, line);
    QFETCH(QString, written);
    QFETCH(int, parts);
    FormHost host;
    const auto form = propertyForm(host, line);
    const QString before = line.startsWith("WMoveC") ? circularBefore : linearBefore;
    form->FillWith(before);
    if (parts)
        QTest::ignoreMessage(QtDebugMsg, qPrintable(QString("part size: %1").arg(qMax(0, parts))));
    form->FillWith(line);
    QTEST(host.takeMessages(), "said");
    QCOMPARE(form->ToString(), written.isEmpty() ? before : written);
}

// What is written is read, and written again unchanged.
void tst_MoveForms::writtenLinesComeBack()
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

void tst_MoveForms::keepsDigitsThatItDoesNotShow()
{
    FormHost host;
    WMoveLPropertyWidget form(host.window());
    const QString line = "WMoveL Offs(p4,0.0001,2e+07,3),v50,fine,tool0,wobj0";
    form.FillWith(line);
    auto *offsets = child(child(&form, "wgtTarget"), "wgtOffsets");
    QCOMPARE(child<QDoubleSpinBox>(offsets, "sbxX")->text(), "0.000");
    child<QDoubleSpinBox>(offsets, "sbxZ")->setValue(4.25);
    QCOMPARE(form.ToString(), "WMoveL Offs(p4,0.0001,2e+07,4.25),v50,fine,tool0,wobj0");
}

void tst_MoveForms::editedBoxCounts()
{
    FormHost host;
    WMoveLPropertyWidget form(host.window());
    form.FillWith("WMoveL p4,v50,fine,tool0,wobj0");
    auto *offsets = child(child(&form, "wgtTarget"), "wgtOffsets");
    QVERIFY(!child(offsets, "sbxX")->isEnabled());
    child<QRadioButton>(child(&form, "wgtTarget"), "rbtnOffs")->click();
    QVERIFY(child(offsets, "sbxZ")->isEnabled() && !child(offsets, "sbxA")->isEnabled());
    child<QDoubleSpinBox>(offsets, "sbxY")->setValue(-2.5);
    QCOMPARE(form.ToString(), "WMoveL Offs(p4,0,-2.5,0),v50,fine,tool0,wobj0");
    child<QRadioButton>(child(&form, "wgtTarget"), "rbtnReltool")->click();
    QVERIFY(child(offsets, "sbxC")->isEnabled());
    child<QDoubleSpinBox>(offsets, "sbxC")->setValue(90);
    QCOMPARE(form.ToString(), "WMoveL Reltool(p4,0,-2.5,0,0,0,90),v50,fine,tool0,wobj0");
    child<QRadioButton>(child(&form, "wgtTarget"), "rbtnPlain")->click();
    QCOMPARE(form.ToString(), "WMoveL p4,v50,fine,tool0,wobj0");
}

void tst_MoveForms::typesWithADecimalPoint()
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

void tst_MoveForms::insertsWhatIsActive_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QString>("wobj");
    QTest::newRow("as found") << "torch1"
                              << "wobj0";
    QTest::newRow("others") << "tool0"
                            << "fixture1";
}

void tst_MoveForms::insertsWhatIsActive()
{
    QFETCH(QString, tool);
    QFETCH(QString, wobj);
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

void tst_MoveForms::insertExpressions()
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

void tst_MoveForms::contract()
{
    FormHost host;
    const std::vector<std::pair<QString, tessa::BaseContentWidget *>> forms{
        {"WMoveLInsertWidget", new WMoveLInsertWidget(host.window())},
        {"WMoveCInsertWidget", new WMoveCInsertWidget(host.window())},
        {"WMoveLPropertyWidget", new WMoveLPropertyWidget(host.window())},
        {"WMoveCPropertyWidget", new WMoveCPropertyWidget(host.window())},
    };
    for (const auto &[name, form] : forms) {
        QCOMPARE(form->objectName(), name);
        QVERIFY(form->CheckInsert() && form->CheckReplace());
        QVERIFY(form->ToJsonValue().isNull() && form->GetLabel().isEmpty());
    }
}

void tst_MoveForms::fitsUnderAFinger_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("Chinese") << "zh_CN";
}

void tst_MoveForms::fitsUnderAFinger()
{
    QFETCH(QString, language);
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
            if (!touchable || !widget->isVisible() || widget->objectName().startsWith("qt_"))
                continue;
            QVERIFY2(widget->width() >= 45 && widget->height() >= 45,
                     qPrintable(widget->objectName()));
            ++touched;
        }
        QVERIFY(touched >= 15);
    }
}

QTEST_MAIN(tst_MoveForms)
#include "tst_moveforms.moc"
