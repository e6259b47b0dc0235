#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "instructions/weavewidget.h"
#include "settings/weavefunctionpage.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

struct Desk
{
    FormHost host;
    WeaveFunctionPage page{host.window(), host.window()};
    QComboBox *reference = combo("cbxWeaveStandard");
    QComboBox *elevation = combo("cbxWeaveElevationType");
    QDoubleSpinBox *frequency = box("sbxWeaveLength_Frequency");
    QDoubleSpinBox *amplitude = box("sbxWeaveAmplitude");

    Desk() { host.takeMessages(); }
    QComboBox *combo(const char *name) const { return child<QComboBox>(page.wgt(), name); }
    QDoubleSpinBox *box(const char *name) const { return child<QDoubleSpinBox>(page.wgt(), name); }
    QString text(const char *label) const { return child<QLabel>(page.wgt(), label)->text(); }
    QString angles() const
    {
        return QString("%1 %2 %3")
            .arg(box("sbxWeaveLeftElevation")->value())
            .arg(box("sbxWeaveRightElevation")->value())
            .arg(box("sbxWeaveLeftElevation")->isEnabled());
    }
    void setAngles(double left, double right) const
    {
        box("sbxWeaveLeftElevation")->setValue(left);
        box("sbxWeaveRightElevation")->setValue(right);
    }
    /// Stores a file as another pendant would, and chooses it.
    void show(int number, const QVariantMap &values)
    {
        const QString name = QString("weavedata%1").arg(number);
        QVariantMap file = host.stored("arc_weld.weave_param", "weavedata1").toMap();
        for (auto it = values.begin(); it != values.end(); ++it)
            file[it.key()] = it.value();
        file["name"] = name;
        QCOMPARE(host.store("arc_weld.weave_param", name, file), 0);
        combo("cbxWeaveFileNumber")->setCurrentIndex(number - 1);
        QCOMPARE(host.takeMessages(), QStringList());
    }
};

QVariantMap elevationFile(const char *type, double left, double right)
{
    return {{"elevation_type", type},
            {"elevation_angle", QVariantMap{{"left", left}, {"right", right}}}};
}

} // namespace

/// What the weave editor adds to its file: dependent controls and the rules before a save.
class tst_WeaveEditor : public QObject
{
    Q_OBJECT

private slots:
    void onlySomeFieldsCanBeEdited()
    {
        Desk desk;
        for (const char *name :
             {"cbxWeaveStandard", "cbxWeaveShape", "cbxWeaveWaveformDirection",
              "cbxWeaveElevationType", "sbxWeaveLeftElevation", "sbxWeaveRightElevation",
              "sbxWeaveInclination", "cbxWeaveStayType", "sbxWeaveCenterStay"})
            QVERIFY2(!child(desk.page.wgt(), name)->isEnabled(), name);
        for (const char *name : {"cbxWeaveFileNumber", "ledtWeaveAnnotation", "sbxWeaveRadius",
                                 "sbxWeaveLength_Frequency", "sbxWeaveAmplitude",
                                 "sbxWeaveLeftStay", "sbxWeaveRightStay"})
            QVERIFY2(child(desk.page.wgt(), name)->isEnabled(), name);
        QVERIFY(!child<QLabel>(desk.page.wgt(), "lblTriangle")->pixmap(Qt::ReturnByValue).isNull());
    }
    void theReferenceDecidesRangeAndUnits()
    {
        Desk desk;
        const auto present = [&desk] {
            return QString("%1 %2..%3 by %4 %5, %6, stay %7")
                .arg(desk.text("lblWeaveLength_Frequency"))
                .arg(desk.frequency->minimum())
                .arg(desk.frequency->maximum())
                .arg(desk.frequency->singleStep())
                .arg(desk.text("lblWeaveLength_FrequencyUnit"), desk.frequency->text(),
                     desk.text("lblWeaveLeftStayUnit"));
        };
        QCOMPARE(present(), QString("Weave Frequency 0.1..5 by 0.1 Hz, 0.10, stay ms"));
        desk.show(2, {{"weaving_reference", "length"}, {"weave_length_frequency", 200.0}});
        QCOMPARE(present(), QString("Weave Length 1..500 by 1 mm, 200, stay ms"));
        desk.show(3, {{"weaving_reference", "length"}, {"dwell_type", "weave_stop"}});
        QCOMPARE(present(), QString("Weave Length 1..500 by 1 mm, 1, stay mm"));
        QCOMPARE(desk.combo("cbxWeaveStayType")->currentText(), QString("Weave Stay"));
        desk.show(4, {{"dwell_type", "weave_stop"}, {"weave_length_frequency", 2.25}});
        QCOMPARE(present(), QString("Weave Frequency 0.1..5 by 0.1 Hz, 2.25, stay ms"));
        desk.reference->setCurrentIndex(0);
        QCOMPARE(desk.text("lblWeaveLeftStayUnit"), QString("mm"));
    }
    void thePatternDecidesRadiusAndStay()
    {
        const Rows<bool, bool> rows{
            {"no_weaving", false, false}, {"triangular", false, true}, {"sine", false, true},
            {"circular", true, false},    {"figure_8", true, false},
        };
        for (const auto &[pattern, radius, stay] : rows) {
            Desk desk;
            desk.show(2, {{"pattern", QString(pattern)}});
            for (const char *name : {"lblWeaveRadius", "sbxWeaveRadius", "lblWeaveRadiusUnit"})
                QCOMPARE(child(desk.page.wgt(), name)->isHidden(), !radius);
            QCOMPARE(child(desk.page.wgt(), "gbxWeaveStaySetting")->isEnabled(), stay);
        }
    }
    void oneAmplitudeForBothSides()
    {
        Desk desk;
        desk.show(2, {{"amplitude", QVariantMap{{"left", 2.5}, {"right", 9.0}}}});
        QCOMPARE(desk.amplitude->value(), 2.5);
        child<QPushButton>(desk.page.wgt(), "btnSave")->click();
        QCOMPARE(desk.host.stored("arc_weld.weave_param", "weavedata2").toMap()["amplitude"],
                 QVariant(QVariantMap{{"left", 2.5}, {"right", 2.5}}));
    }
    void anglesAreRememberedWhileTheyDoNotCount()
    {
        Desk desk;
        desk.show(2, elevationFile("triangular", 30, 20));
        QCOMPARE(desk.angles(), QString("30 20 1"));
        desk.setAngles(40, 10);
        desk.elevation->setCurrentIndex(0);
        QCOMPARE(desk.angles(), QString("0 0 0"));
        desk.elevation->setCurrentIndex(1);
        QCOMPARE(desk.angles(), QString("40 10 1"));

        // They outlast any number of files that have none of their own...
        desk.show(3, elevationFile("v_pattern", 0, 0));
        for (int i = 0; i < 3; ++i)
            desk.page.initPage();
        QCOMPARE(desk.angles(), QString("0 0 0"));
        desk.elevation->setCurrentIndex(1);
        QCOMPARE(desk.angles(), QString("40 10 1"));
        // ...give way to those that a "V-Pattern" file brings...
        desk.show(4, elevationFile("v_pattern", 15, 5));
        QCOMPARE(desk.angles(), QString("0 0 0"));
        // ...and never stand for a "Triangular" file's own.
        desk.show(2, elevationFile("triangular", 30, 20));
        QCOMPARE(desk.angles(), QString("30 20 1"));
        desk.show(4, elevationFile("v_pattern", 15, 5));
        desk.page.initPage();
        desk.elevation->setCurrentIndex(1);
        QCOMPARE(desk.angles(), QString("15 5 1"));
    }
    void rulesBeforeASave()
    {
        const QString good = "info: save parameter succeed";
        const QString product =
            "error: The frequency multiplied by the amplitude must be less than 50";
        const QString sum = "error: The sum of the elevation angles must not be 0, 180, or -180";
        using Values = QVector<double>; // frequency, amplitude, angles if they count
        const Rows<bool, Values, QString> rows{
            {"exactly 50", true, Values{5, 10}, good},
            {"10.01", true, Values{5, 10.01}, product},
            {"4.35, a little less as binary", true, Values{4.35, 11.5}, product},
            {"length", false, Values{500, 100}, good},
            {"180", true, Values{1, 1, 90, 90}, sum},
            {"-180", true, Values{1, 1, -90, -90}, sum},
            {"0", true, Values{1, 1, 12.34, -12.34}, sum},
            {"0.01", true, Values{1, 1, 0.1, -0.09}, good},
            {"the product comes first", true, Values{5, 11, 0, 0}, product},
        };
        for (const auto &[name, period, values, message] : rows) {
            Desk desk;
            desk.reference->setCurrentIndex(period);
            desk.frequency->setValue(values[0]);
            desk.amplitude->setValue(values[1]);
            desk.elevation->setCurrentIndex(values.size() > 2);
            if (values.size() > 2)
                desk.setAngles(values[2], values[3]);
            desk.host.takeRequests();
            child<QPushButton>(desk.page.wgt(), "btnSave")->click();
            QCOMPARE(desk.host.takeMessages(), QStringList(message + " [weaveFunction]"));
            QCOMPARE(desk.host.takeRequests().isEmpty(), message.startsWith("error"));
            QCOMPARE(desk.amplitude->value(), values[1]);
        }
    }
    void eachHomeCreatesFilesOfItsOwn()
    {
        // Whichever editor was built last: both write to the one default node.
        Desk desk;
        WeaveWidget instruction(desk.host.window());
        const auto created = [&desk](QComboBox *combo, int number) {
            combo->setCurrentIndex(number - 1);
            return desk.host.stored("arc_weld.weave_param", QString("weavedata%1").arg(number))
                .toMap()["weave_length_frequency"];
        };
        QCOMPARE(created(desk.combo("cbxWeaveFileNumber"), 8), QVariant(0.1));
        QCOMPARE(created(child<QComboBox>(&instruction, "cbxWeaveFileNumber"), 9), QVariant(0.01));
        QCOMPARE(child<QDoubleSpinBox>(&instruction, "sbxWeaveLength_Frequency")->value(), 0.1);
        QVERIFY(child(&instruction, "wgtPreview")->isHidden());
        QVERIFY(child<QGroupBox>(&instruction, "gbxWeaveSetting")->title().isEmpty());
    }
};

QTEST_MAIN(tst_WeaveEditor)
#include "tst_weaveeditor.moc"
