#include "instructions/forms/weavewidget.h"
#include "settings/weavefunctionpage.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;

namespace {

struct Fixture
{
    FormHost host;
    WeaveFunctionPage page{host.window(), host.window()};
    QComboBox *reference = combo("cbxWeaveStandard");
    QComboBox *elevation = combo("cbxWeaveElevationType");
    QDoubleSpinBox *frequency = box("sbxWeaveLength_Frequency");
    QDoubleSpinBox *amplitude = box("sbxWeaveAmplitude");

    Fixture() { host.takeMessages(); }
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

using Values = QVector<double>; // frequency, amplitude, angles

} // namespace

/// The weave editor: controls that depend on others, and the rules that are checked before a save.
class tst_WeaveEditor : public QObject
{
    Q_OBJECT

private slots:
    void theReferenceDecidesRangeAndUnits()
    {
        Fixture ui;
        const auto text = [&ui](const char *label) {
            return child<QLabel>(ui.page.wgt(), label)->text();
        };
        const auto present = [&] {
            return QString("%1 %2..%3 by %4 %5, %6, stay %7")
                .arg(text("lblWeaveLength_Frequency"))
                .arg(ui.frequency->minimum())
                .arg(ui.frequency->maximum())
                .arg(ui.frequency->singleStep())
                .arg(text("lblWeaveLength_FrequencyUnit"), ui.frequency->text(),
                     text("lblWeaveLeftStayUnit"));
        };
        QCOMPARE(present(), "Weave Frequency 0.1..5 by 0.1 Hz, 0.10, stay ms");
        ui.show(2, {{"weaving_reference", "length"}, {"weave_length_frequency", 200.0}});
        QCOMPARE(present(), "Weave Length 1..500 by 1 mm, 200, stay ms");
        ui.show(3, {{"weaving_reference", "length"}, {"dwell_type", "weave_stop"}});
        QCOMPARE(present(), "Weave Length 1..500 by 1 mm, 1, stay mm");
        ui.show(4, {{"dwell_type", "weave_stop"}, {"weave_length_frequency", 2.25}});
        QCOMPARE(present(), "Weave Frequency 0.1..5 by 0.1 Hz, 2.25, stay ms");
        ui.reference->setCurrentIndex(0);
        QCOMPARE(text("lblWeaveLeftStayUnit"), "mm");
    }
    void thePatternDecidesRadiusAndStay_data()
    {
        addRows<bool, bool>(
            {{"no_weaving", false, false}, {"sine", false, true}, {"figure_8", true, false}});
    }
    void thePatternDecidesRadiusAndStay()
    {
        const auto &[pattern, radius, stay] = currentRow<bool, bool>();
        Fixture ui;
        int number = 1;
        ui.show(++number, {{"pattern", QString(pattern)}});
        for (const char *name : {"lblWeaveRadius", "sbxWeaveRadius", "lblWeaveRadiusUnit"})
            QCOMPARE(child(ui.page.wgt(), name)->isHidden(), !radius);
        QCOMPARE(child(ui.page.wgt(), "gbxWeaveStaySetting")->isEnabled(), stay);
    }
    void anglesAreRememberedWhileTheyDoNotCount()
    {
        Fixture ui;
        ui.show(2, elevationFile("triangular", 30, 20));
        ui.setAngles(40, 10);
        ui.elevation->setCurrentIndex(0);
        QCOMPARE(ui.angles(), "0 0 0");
        ui.elevation->setCurrentIndex(1);
        QCOMPARE(ui.angles(), "40 10 1");
        // The remembered angles belong to one file, and a "Triangular" file has its own.
        ui.show(3, elevationFile("v_pattern", 0, 0));
        ui.page.initPage();
        ui.elevation->setCurrentIndex(1);
        QCOMPARE(ui.angles(), "0 0 1");
        ui.show(4, elevationFile("v_pattern", 15, 5));
        ui.show(2, elevationFile("triangular", 30, 20));
        QCOMPARE(ui.angles(), "30 20 1");
        ui.show(4, elevationFile("v_pattern", 15, 5));
        QCOMPARE(ui.angles(), "0 0 0");
        ui.elevation->setCurrentIndex(1);
        QCOMPARE(ui.angles(), "15 5 1");
    }
    void rulesBeforeASave_data()
    {
        const QString good = "info: save parameter succeed";
        const QString product =
            "error: The frequency multiplied by the amplitude must be less than 50";
        const QString sum = "error: The sum of the elevation angles must not be 0, 180, or -180";
        addRows<bool, Values, QString>(
            {{"exactly 50", true, {5, 10, 0, 1}, good},
             {"4.35, a little less as binary", true, {4.35, 11.5, 0, 1}, product},
             {"length", false, {500, 100, 0, 1}, good},
             {"180", true, {1, 1, 90, 90}, sum},
             {"-180", true, {1, 1, -90, -90}, sum},
             {"0", true, {1, 1, 12.34, -12.34}, sum},
             {"0.01", true, {1, 1, 0.1, -0.09}, good},
             {"the product comes first", true, {5, 11, 0, 0}, product},
             {"angles that do not count", true, {1, 1}, good}});
    }
    void rulesBeforeASave()
    {
        const auto &[name, period, values, message] = currentRow<bool, Values, QString>();
        Fixture ui;
        ui.elevation->setCurrentIndex(values.size() == 4);
        ui.reference->setCurrentIndex(period);
        ui.frequency->setValue(values[0]);
        ui.amplitude->setValue(values[1]);
        ui.setAngles(values.value(2), values.value(3));
        ui.host.takeRequests();
        child<QPushButton>(ui.page.wgt(), "btnSave")->click();
        QCOMPARE(ui.host.takeMessages(), QStringList(message + " [weaveFunction]"));
        QCOMPARE(ui.host.takeRequests().isEmpty(), message.startsWith("error"));
        QCOMPARE(ui.amplitude->value(), values[1]);
    }
    // Both editors write their defaults to the same node; each must use its own.
    void eachHomeCreatesFilesOfItsOwn()
    {
        Fixture ui;
        WeaveWidget instruction(ui.host.window());
        ui.combo("cbxWeaveFileNumber")->setCurrentIndex(7);
        child<QComboBox>(&instruction, "cbxWeaveFileNumber")->setCurrentIndex(8);
        for (const auto &[file, value] : {std::pair{"weavedata8", 0.1}, {"weavedata9", 0.01}})
            QCOMPARE(ui.host.stored("arc_weld.weave_param", file).toMap()["weave_length_frequency"],
                     QVariant(value));
        QCOMPARE(child<QDoubleSpinBox>(&instruction, "sbxWeaveLength_Frequency")->value(), 0.1);
        QVERIFY(child(&instruction, "wgtPreview")->isHidden());
        QVERIFY(child<QGroupBox>(&instruction, "gbxWeaveSetting")->title().isEmpty());
    }
};

QTEST_MAIN(tst_WeaveEditor)
#include "tst_weaveeditor.moc"
