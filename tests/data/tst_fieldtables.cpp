#include <QtTest>

#include "allsets.h"
#include "settings/basesubpage.h"
#include "support/formhost.h"

using namespace welmo;
using testsupport::FormHost;

namespace {

// Stored types by key, the value in a new set (with a point: a real number, else an integer), and
// the range; "trunc" loses its fraction when it is shown, "hidden" has no control, "twin" no row of
// its own. Written down once more, on purpose, from what the controllers in the field expect.
const QHash<QString, QString> contracts{
    {"arcon",
     "name text default; annotation text -; mode work flat_characteristic;"
     "current_mode current current; voltage_mode voltage unified; current real 0 0..2000;"
     "voltage real 0 0..200; hold_time int 200 0..10000; detect_time int 2000 0..10000;"
     "confirm_time int 200 0..10000; preflow_time int 200 1..10000;"
     "prearc_time int 200 0..10000; slow_wire_feed_speed real 1 1..21;"
     "pre_wirefeed_time int 200 0..10000; ramp_time int 200 1..10000;"
     "re_arcon.enable switch false; re_arcon.retry_time int 3 1..20;"
     "re_arcon.wire_retract_delay_time int 50 0..10000;"
     "re_arcon.wire_retract_time int 200 0..10000; re_arcon.current_step real 0 0..50;"
     "re_arcon.voltage_step real 0 0..10; re_arcon.scratch_on_failure hidden false;"
     "scratch_arcon.enable switch false; scratch_arcon.distance int 20 0..500;"
     "scratch_arcon.back_speed int 50 0..10000; scratch_arcon.step int 5 0..500;"
     "scratch_arcon.offset int 0 0..10"},
    {"weld",
     "name text default; annotation text -; mode work flat_characteristic;"
     "current_mode current current; voltage_mode voltage unified; current real 0 0..2000;"
     "voltage real 0 0..200; weld_speed int 10 0..10000; ramp_time int 200 1..10000;"
     "arc_break_param.detect_time int 500 0..10000;"
     "arc_break_param.arc_break_option break continue_running;"
     "arc_break_param.restart_back_distance int 10 0..100"},
    {"arcoff",
     "name text default; annotation text -; mode work flat_characteristic;"
     "current_mode current current; voltage_mode voltage unified; current real 0 0..2000;"
     "voltage real 0 0..10000; hold_time int 500 0..10000;"
     "delay_gasoff_time int 200 0..10000; detect_time int 5000 0..10000;"
     "retract_time int 100 0..10000; wire_stick_detection_time int 500 0..10000;"
     "anti_wire_stick_param.enable switch false;"
     "anti_wire_stick_param.current trunc 30 0..100;"
     "anti_wire_stick_param.voltage trunc 10 0..50;"
     "anti_wire_stick_param.time int 500 0..10000"},
    {"weave",
     "name text default; annotation text -; weaving_reference reference cycle;"
     "pattern pattern triangular; weave_length_frequency real 0.1 0.1..5;"
     "amplitude.left real 0.1 0.1..100; amplitude.right twin 0.1;"
     "dwell_type dwell robot_stay; dwell_time ints 0,0,0; radius real 0.1 0.1..100;"
     "phase_invert direction false; elevation_type elevation v_pattern;"
     "elevation_angle.left real 0 -90..90; elevation_angle.right real 0 -90..90;"
     "inclination_angle real 0 -90..90"},
    {"seg",
     "name text default; annotation text -; seg_type seg normal; non_welded_speed text v5;"
     "welded_distance real 0.1 0.1..1.7976931348623157e308;"
     "non_welded_distance real 0.1 0.1..1.7976931348623157e308"},
    {"running",
     "test_run_speed int 200 1..250; wire_feed_speed real 1 1..21;"
     "gas_detect_time int 15 1..30"},
    {"anticollision", "enable bool false; signal text No_signal; block bool false"},
    {"clamping", "enable mode false; signal text No_signal"},
};

// Shown texts and stored codes of each kind of choice, in the order in which they are offered.
const QHash<QString, QString> choiceContracts{
    {"work",
     "Flat Characteristic=flat_characteristic|Low Spatter=low_spatter|Pulse=pulse|"
     "Double Pulse=double_pulse|DC Spot Welding=dc_spot_welding|"
     "Pulsed Spot Welding=pulsed_spot_welding|Deep Penetration=deep_penetration|"
     "Fast Pulse=fast_pulse|Low Spatter Spot Welding=low_spatter_spot_welding|ASMT=asmt|"
     "ASMT Spot Welding=asmt_spot_welding|Job=job"},
    {"current", "Current=current|Wire Feed=wire_feed"},
    {"voltage", "Unified=unified|Separate=separate"},
    {"break",
     "Continue Running=continue_running|Stop and Alarm=stop_and_alarm|"
     "Auto Arc Reignition=auto_arc_reignition"},
    {"switch", "Open=true|Close=false"},
    {"mode", "Close=false|Open=true"},
    {"reference", "Length=length|Period=cycle"},
    {"pattern",
     "No Weaving=no_weaving|Triangular=triangular|Sine=sine|Circular=circular|"
     "Figure-8=figure_8"},
    {"dwell", "Robot Stay=robot_stay|Weave Stay=weave_stop"},
    {"direction", "Normal=false|Reverse=true"},
    {"elevation", "V-Pattern=v_pattern|Triangular=triangular"},
    {"seg", "Normal=normal"},
};

// What stands beside the controls; the misspellings are what operators know.
const QHash<QString, QString> labels{
    {"arcon",
     "ArcOn Parameter|ArcOn Parameter File Number|Annotation|Arc Mode|Current Mode|"
     "Voltage Mode|ArcOn Current|ArcOn Voltage|ArcOn Time|ArcOn Detect Time|"
     "ArcOn Confirm Time|BeforeFlow Time|BeforeArcOn Time|Slow Wire Feed Speed|"
     "BeforeWireOut|ShadingTime|Arc Reignition|RetryTimes|RetratWaitTime|RetractTime|"
     "Current Increase|Voltage Increase|MoveArcOn|MoveDis|ReturnSpeed|StepDis|Save|Cancel"},
    {"weld",
     "Weld Parameter|Weld Parameter File Number|Annotation|Arc Mode|Current Mode|"
     "Voltage Mode|WeldCurrent|WeldVoltage|WeldSpeed|Shdingtime|Arc Detect Time|"
     "Arc Break Option|BackDistance|Save|Cancel|Enable"},
    {"arcoff",
     "ArcOff Parameter|ArcOff Parameter File Number|Annotation|Arc Mode|Current Mode|"
     "Voltage Mode|ArcOff Current|ArcOff Voltage|ArcOff Time|Stop Flow Delay Time|"
     "ArcOff Detection Time|ArcOff Pull Wire Time|Wire Sticking Detection Time|"
     "Anti-Stick Function Switch|Anti-Stick Current|Anti-Stick Voltage|Anti-Stick Time"},
    {"weave page",
     "Weave Setting|Angle Setting|Stay Setting|Weave Parameter File Number|"
     "Weave Standard|Weave Pattern|Weave Frequency|Amplitude|Stay Type|Weave Radius|"
     "Waveform Direction|Elevation Type|Left Elevation|Right Elevation|Inclination"},
    {"seg",
     "Seg File Number|Annotation|Seg Type|Non-welded Speed|Welded Distance|"
     "Non-welded Distance"},
    {"running",
     "Base Setting|Anti-Collision Setting|Wire Torch Mode Setting|DI Selection|"
     "Empty running Cartesian speed|Jog Wire Feed/Reverse Speed|Flow Detection Time|"
     "Anti-Collision Switch|Anti-Collision Shield|Mode Switch|Save"},
};

// The one default that its own box cannot show.
const QStringList defaultsOutOfRange{"weave instruction/weave_length_frequency"};

/// One line of a contract.
struct Expected
{
    QString key, type, value, range;

    explicit Expected(const QString &line)
    {
        const QStringList words = line.split(' ', Qt::SkipEmptyParts);
        key = words.at(0);
        type = words.at(1);
        value = type == "text" ? QString(words.at(2)).replace('_', ' ') : words.at(2);
        range = words.value(3);
    }
    QMetaType::Type storedType() const
    {
        static const QHash<QString, QMetaType::Type> types{
            {"int", QMetaType::Int},      {"real", QMetaType::Double},
            {"twin", QMetaType::Double},  {"ints", QMetaType::QVariantList},
            {"trunc", QMetaType::Double}, {"hidden", QMetaType::UnknownType}};
        const bool truth = value == "true" || value == "false";
        return types.value(type, truth ? QMetaType::Bool : QMetaType::QString);
    }
    // A new set holds whole numbers as integers even where the form stores real ones.
    QVariant defaultValue() const
    {
        if (type == "ints")
            return QVariantList{0, 0, 0};
        if (value == "true" || value == "false")
            return value == "true";
        if (QStringList{"int", "real", "twin", "trunc"}.contains(type))
            return value.contains('.') ? QVariant(value.toDouble()) : QVariant(value.toInt());
        return value == "-" ? QString() : value;
    }
};

QStringList leaves(const kelp::ModuleObject *node, const QString &path = {})
{
    QStringList keys;
    for (const kelp::ModuleObject *each : node->cmobjs()) {
        const QString key = path + each->name();
        keys += each->cmobjCount() == 0 ? QStringList(key) : leaves(each, key + '.');
    }
    keys.sort();
    return keys;
}

} // namespace

/// Every row of every set, whatever is added to it later.
class tst_FieldTables : public QObject
{
    Q_OBJECT

    FormHost m_host;
    std::vector<SetUnderTest> m_sets;

    FieldTable &fields()
    {
        QFETCH_GLOBAL(int, set);
        return *m_sets[size_t(set)].fields;
    }
    QString setName()
    {
        QFETCH_GLOBAL(int, set);
        return m_sets[size_t(set)].name;
    }
    /// Shows a file that holds the defaults, but for one value.
    void show(kelp::ModuleObject &file, const QString &key = {}, const QVariant &value = {})
    {
        fields().writeDefaults(&file);
        if (!key.isEmpty())
            file.set(this, key, value);
        m_host.takeMessages();
        fields().show(&file);
    }
    void checkControl(const Field &field, const Expected &expected)
    {
        const QWidget *editor = field.editor();
        QCOMPARE(editor == nullptr, expected.type == "hidden");
        if (const auto *real = dynamic_cast<const RealField *>(&field))
            QCOMPARE(real->isReadAsInteger(), expected.type == "trunc");
        if (!expected.range.isEmpty()) {
            const QStringList range = expected.range.split("..");
            QCOMPARE(editor->property("minimum").toDouble(), range.at(0).toDouble());
            QCOMPARE(editor->property("maximum").toDouble(), range.at(1).toDouble());
        }
        if (!choiceContracts.contains(expected.type))
            return;
        const auto *combo = qobject_cast<const QComboBox *>(editor);
        QStringList items;
        for (int i = 0; i < combo->count(); ++i)
            items.append(combo->itemText(i) + '=' + combo->itemData(i).toString());
        QCOMPARE(items.join('|'), choiceContracts.value(expected.type));
    }
    void checkClamping(const Field &field)
    {
        const double step = dynamic_cast<const IntegerField *>(&field) ? 1 : 0.01;
        const QVariantList range = offeredBy(field);
        for (const int end : {0, 1}) {
            kelp::ModuleObject file("file");
            show(file, field.key(), range[end].toDouble() + (end == 0 ? -step : step));
            QCOMPARE(shownBy(field), range[end]);
        }
        kelp::ModuleObject file("file");
        show(file, field.key(), range[0].toDouble() + 5.75);
        const auto *real = dynamic_cast<const RealField *>(&field);
        if (real && real->isReadAsInteger())
            QCOMPARE(shownBy(field).toDouble(), double(int(range[0].toDouble() + 5.75)));
    }
    void checkUnknownCode(const Field &field)
    {
        kelp::ModuleObject file("file7");
        show(file);
        const QVariant before = shownBy(field);
        show(file, field.key(), "out_of_the_blue");
        if (field.key() == "non_welded_speed")
            QCOMPARE(shownBy(field), before); // stays on its present item
        else
            QCOMPARE(qobject_cast<QComboBox *>(field.editor())->currentIndex(), -1);
        const QString message = m_host.takeMessages().join('|');
        QVERIFY2(message.startsWith("warning: file7: ")
                     && message.contains("\"out_of_the_blue\" of \"" + field.key() + '"'),
                 qPrintable(message));
        fields().store(&file);
        QCOMPARE(file.r(field.key())->getString(), QString("out_of_the_blue"));
        edit(field, offeredBy(field).last());
        fields().store(&file);
        QCOMPARE(file.r(field.key())->value(), offeredBy(field).last());
    }

private slots:
    void initTestCase_data()
    {
        m_sets = allSets(m_host.window());
        QTest::addColumn<int>("set");
        for (size_t i = 0; i < m_sets.size(); ++i)
            QTest::newRow(qPrintable(m_sets[i].name)) << int(i);
    }
    void contract()
    {
        // The instruction's weave editor is the page's, but for one default.
        QString lines = contracts.value(setName().section(' ', 0, 0));
        if (setName() == "weave instruction")
            lines.replace("frequency real 0.1", "frequency real 0.01");
        kelp::ModuleObject fresh("default");
        show(fresh);
        kelp::ModuleObject stored("file");
        stored.set(this, "stranger.inside", 7);
        QHash<QString, const Field *> rows;
        for (const auto &row : fields().rows()) {
            rows.insert(row->key(), row.get());
            if (!row->editor())
                stored.set(this, row->key(), "as it was");
        }
        fields().store(&stored);

        QStringList keys;
        for (const QString &line : lines.split(';')) {
            const Expected expected(line);
            keys.append(expected.key);
            const QByteArray where = expected.key.toUtf8();
            const QVariant value = fresh.r(expected.key)->value();
            QVERIFY2(value == expected.defaultValue(), where + ": default");
            QVERIFY2(value.userType() == expected.defaultValue().userType(), where + ": its type");
            const QVariant saved = stored.r(expected.key)->value();
            if (expected.type == "hidden")
                QCOMPARE(saved, QVariant("as it was"));
            else
                QVERIFY2(saved.userType() == expected.storedType(), where + ": stored type");
            if (expected.type == "twin")
                continue;
            QVERIFY2(rows.contains(expected.key), where + ": there is no such row");
            checkControl(*rows.value(expected.key), expected);
            if (QTest::currentTestFailed())
                qFatal("%s", where.constData());
        }
        keys.sort();
        QCOMPARE(leaves(&fresh), keys); // no row that is not in the contract
        stored.r("stranger")->removeChild("inside");
        stored.removeChild("stranger");
        QCOMPARE(leaves(&stored), keys); // and nothing else is stored
    }
    void labelling()
    {
        QFETCH_GLOBAL(int, set);
        const QObject *form = m_sets[size_t(set)].form.get();
        if (const auto *page = qobject_cast<const BaseSubPage *>(form))
            form = page->wgt();
        QStringList texts{form->property("title").toString()};
        for (const QWidget *widget : form->findChildren<QWidget *>())
            texts += {widget->property("text").toString(), widget->property("title").toString()};
        for (const QString &label : labels.value(setName()).split('|'))
            QVERIFY2(texts.contains(label), qPrintable(label));
    }
    void eachRow()
    {
        for (const auto &row : fields().rows()) {
            const Field &field = *row;
            if (!field.editor())
                continue;
            checkRow(field);
            if (QTest::currentTestFailed())
                qFatal("%s", qPrintable(field.key()));
        }
    }
    void checkRow(const Field &field)
    {
        const QVariantList offered = offeredBy(field);
        QVERIFY2(!offered.isEmpty(), "this kind of field has no test; teach allsets.cpp");
        kelp::ModuleObject fresh("file");
        show(fresh);
        if (field.key() != "name") // chosen with the combo, never shown from the file
            QCOMPARE(shownBy(field) == fresh.r(field.key())->value(),
                     !defaultsOutOfRange.contains(setName() + '/' + field.key()));
        for (int i = 0; i < offered.size(); ++i) {
            kelp::ModuleObject file("file");
            show(file);
            edit(field, offered[i]);
            fields().store(&file);
            const QVariant stored = file.r(field.key())->value();
            QCOMPARE(stored, offered[i]);
            QCOMPARE(stored.userType(), offered[i].userType());
            const auto *real = dynamic_cast<const RealField *>(&field);
            if (real && !real->twinKey().isEmpty())
                QCOMPARE(file.r(real->twinKey())->value(), offered[i]);
            // An edit that is dropped again: the control shows what is stored.
            edit(field, offered[(i + 1) % offered.size()]);
            fields().show(&file);
            if (field.key() != "name")
                QCOMPARE(shownBy(field), offered[i]);
        }
        if (dynamic_cast<const IntegerField *>(&field) || dynamic_cast<const RealField *>(&field))
            checkClamping(field);
        const auto *choice = dynamic_cast<const ChoiceField *>(&field);
        if ((choice && !choice->table().isBoolean()) || dynamic_cast<const NameField *>(&field))
            checkUnknownCode(field);
    }
};

QTEST_MAIN(tst_FieldTables)
#include "tst_fieldtables.moc"
