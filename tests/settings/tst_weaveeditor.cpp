#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "instructions/forms/weavewidget.h"
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
        for (const QString &message : host.takeMessages())
            QVERIFY2(message.contains("changes were not saved") || message.contains("is stored"),
                     qPrintable(message));
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
    void theReferenceDecidesRangeAndUnits()
    {
        Desk desk;
        const auto text = [&desk](const char *label) {
            return child<QLabel>(desk.page.wgt(), label)->text();
        };
        const auto present = [&] {
            return QString("%1 %2..%3 by %4 %5, %6, stay %7")
                .arg(text("lblWeaveLength_Frequency"))
                .arg(desk.frequency->minimum())
                .arg(desk.frequency->maximum())
                .arg(desk.frequency->singleStep())
                .arg(text("lblWeaveLength_FrequencyUnit"), desk.frequency->text(),
                     text("lblWeaveLeftStayUnit"));
        };
        QCOMPARE(present(), "Weave Frequency 0.1..5 by 0.1 Hz, 0.10, stay ms");
        desk.show(2, {{"weaving_reference", "length"}, {"weave_length_frequency", 200.0}});
        QCOMPARE(present(), "Weave Length 1..500 by 1 mm, 200, stay ms");
        desk.show(3, {{"weaving_reference", "length"}, {"dwell_type", "weave_stop"}});
        QCOMPARE(present(), "Weave Length 1..500 by 1 mm, 1, stay mm");
        desk.show(4, {{"dwell_type", "weave_stop"}, {"weave_length_frequency", 2.25}});
        QCOMPARE(present(), "Weave Frequency 0.1..5 by 0.1 Hz, 2.25, stay ms");
        desk.reference->setCurrentIndex(0);
        QCOMPARE(text("lblWeaveLeftStayUnit"), "mm");
    }
    void thePatternDecidesRadiusAndStay()
    {
        const Rows<bool, bool> rows{
            {"no_weaving", false, false},
            {"sine", false, true},
            {"figure_8", true, false},
        };
        Desk desk;
        int number = 1;
        for (const auto &[pattern, radius, stay] : rows) {
            desk.show(++number, {{"pattern", QString(pattern)}});
            for (const char *name : {"lblWeaveRadius", "sbxWeaveRadius", "lblWeaveRadiusUnit"})
                QCOMPARE(child(desk.page.wgt(), name)->isHidden(), !radius);
            QCOMPARE(child(desk.page.wgt(), "gbxWeaveStaySetting")->isEnabled(), stay);
        }
    }
    void anglesAreRememberedWhileTheyDoNotCount()
    {
        Desk desk;
        desk.show(2, elevationFile("triangular", 30, 20));
        desk.setAngles(40, 10);
        desk.elevation->setCurrentIndex(0);
        QCOMPARE(desk.angles(), "0 0 0");
        desk.elevation->setCurrentIndex(1);
        QCOMPARE(desk.angles(), "40 10 1");
        // They never go into another file, nor stand for a "Triangular" file's own.
        desk.show(3, elevationFile("v_pattern", 0, 0));
        desk.page.initPage();
        desk.elevation->setCurrentIndex(1);
        QCOMPARE(desk.angles(), "0 0 1");
        desk.show(4, elevationFile("v_pattern", 15, 5));
        desk.show(2, elevationFile("triangular", 30, 20));
        QCOMPARE(desk.angles(), "30 20 1");
        desk.show(4, elevationFile("v_pattern", 15, 5));
        QCOMPARE(desk.angles(), "0 0 0");
        desk.elevation->setCurrentIndex(1);
        QCOMPARE(desk.angles(), "15 5 1");
    }
    void rulesBeforeASave()
    {
        const QString good = "info: save parameter succeed";
        const QString product =
            "error: The frequency multiplied by the amplitude must be less than 50";
        const QString sum = "error: The sum of the elevation angles must not be 0, 180, or -180";
        using Values = QVector<double>; // frequency, amplitude, angles
        const Rows<bool, Values, QString> rows{
            {"exactly 50", true, Values{5, 10, 0, 1}, good},
            {"4.35, a little less as binary", true, Values{4.35, 11.5, 0, 1}, product},
            {"length", false, Values{500, 100, 0, 1}, good},
            {"180", true, Values{1, 1, 90, 90}, sum},
            {"-180", true, Values{1, 1, -90, -90}, sum},
            {"0", true, Values{1, 1, 12.34, -12.34}, sum},
            {"0.01", true, Values{1, 1, 0.1, -0.09}, good},
            {"the product comes first", true, Values{5, 11, 0, 0}, product},
        };
        Desk desk;
        desk.elevation->setCurrentIndex(1);
        for (const auto &[name, period, values, message] : rows) {
            desk.reference->setCurrentIndex(period);
            desk.frequency->setValue(values[0]);
            desk.amplitude->setValue(values[1]);
            desk.setAngles(values[2], values[3]);
            desk.host.takeRequests();
            child<QPushButton>(desk.page.wgt(), "btnSave")->click();
            QCOMPARE(desk.host.takeMessages(), QStringList(message + " [weaveFunction]"));
            QCOMPARE(desk.host.takeRequests().isEmpty(), message.startsWith("error"));
            QCOMPARE(desk.amplitude->value(), values[1]);
        }
        desk.elevation->setCurrentIndex(0); // now they do not count
        desk.amplitude->setValue(1);
        child<QPushButton>(desk.page.wgt(), "btnSave")->click();
        QCOMPARE(desk.host.takeMessages(), QStringList(good + " [weaveFunction]"));
    }
    // Whichever editor was built last: both write to the one default node.
    void eachHomeCreatesFilesOfItsOwn()
    {
        Desk desk;
        WeaveWidget instruction(desk.host.window());
        desk.combo("cbxWeaveFileNumber")->setCurrentIndex(7);
        child<QComboBox>(&instruction, "cbxWeaveFileNumber")->setCurrentIndex(8);
        for (const auto &[file, value] : {std::pair{"weavedata8", 0.1}, {"weavedata9", 0.01}})
            QCOMPARE(
                desk.host.stored("arc_weld.weave_param", file).toMap()["weave_length_frequency"],
                QVariant(value));
        QCOMPARE(child<QDoubleSpinBox>(&instruction, "sbxWeaveLength_Frequency")->value(), 0.1);
        QVERIFY(child(&instruction, "wgtPreview")->isHidden());
        QVERIFY(child<QGroupBox>(&instruction, "gbxWeaveSetting")->title().isEmpty());
    }
};

QTEST_MAIN(tst_WeaveEditor)
#include "tst_weaveeditor.moc"
