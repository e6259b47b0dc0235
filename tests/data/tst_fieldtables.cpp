#include <QtTest>

#include "allsets.h"
#include "support/formhost.h"

using namespace welmo;
using testsupport::FormHost;

namespace {

// Stored types by key, the value in a new set (with a point: a real number, else an integer), and
// the range; "trunc" loses its fraction when it is shown, "hidden" has no control, "twin" no row of
// its own. Written down once more, on purpose, from what the controllers in the field expect.
const QVector<QPair<QString, QString>> contracts{
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
    {"weave page",
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
    {"wire_clamping_torch", "enable mode false; signal text No_signal"},
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

// The one default that its own box cannot show.
const QStringList defaultsOutOfRange{"weave instruction/weave_length_frequency"};

struct Expected
{
    QString key;
    QString type;
    QString value;
    QString range;

    explicit Expected(const QString &row)
    {
        const QStringList words = row.split(' ', Qt::SkipEmptyParts);
        key = words.at(0);
        type = words.at(1);
        value = QString(words.at(2)).replace('_', type == "text" ? ' ' : '_');
        range = words.value(3);
    }

    QMetaType::Type storedType() const
    {
        static const QHash<QString, QMetaType::Type> types{
            {"text", QMetaType::QString},      {"int", QMetaType::Int},
            {"real", QMetaType::Double},       {"twin", QMetaType::Double},
            {"ints", QMetaType::QVariantList}, {"bool", QMetaType::Bool},
            {"trunc", QMetaType::Double},      {"hidden", QMetaType::UnknownType}};
        const bool truth = choiceContracts.value(type).contains("=true");
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

    void addRows(const std::function<bool(const Field &)> &wanted)
    {
        QTest::addColumn<int>("set");
        QTest::addColumn<int>("row");
        for (size_t set = 0; set < m_sets.size(); ++set) {
            const auto &rows = m_sets[set].fields->rows();
            for (size_t row = 0; row < rows.size(); ++row) {
                if (wanted(*rows[row]))
                    QTest::addRow("%s/%s", qPrintable(m_sets[set].name),
                                  qPrintable(rows[row]->key()))
                        << int(set) << int(row);
            }
        }
    }
    SetUnderTest &set()
    {
        QFETCH(int, set);
        return m_sets[size_t(set)];
    }
    const Field &row()
    {
        QFETCH(int, row);
        return *set().fields->rows()[size_t(row)];
    }
    /// A file with the defaults of the set under test.
    void fill(kelp::ModuleObject &file)
    {
        set().fields->writeDefaults(&file);
        set().fields->show(&file);
        m_host.takeMessages();
    }

private slots:
    void initTestCase() { m_sets = allSets(m_host.window()); }

    void contract_data()
    {
        QTest::addColumn<int>("set");
        QTest::addColumn<QString>("rows");
        for (size_t set = 0; set < m_sets.size(); ++set) {
            for (const auto &[name, rows] : contracts) {
                // The instruction's editor is the page's, but for one default.
                QString text = rows;
                if (m_sets[set].name == "weave instruction")
                    text.replace("weave_length_frequency real 0.1",
                                 "weave_length_frequency real 0.01");
                if (m_sets[set].name.section(' ', 0, 0) == name.section(' ', 0, 0))
                    QTest::addRow("%s", qPrintable(m_sets[set].name)) << int(set) << text;
            }
        }
        QCOMPARE(m_sets.size(), size_t(contracts.size() + 1));
    }
    void contract()
    {
        QFETCH(QString, rows);
        kelp::ModuleObject fresh("default");
        set().fields->writeDefaults(&fresh);
        kelp::ModuleObject stored("file");
        set().fields->show(&fresh);
        set().fields->store(&stored);
        QHash<QString, const Field *> fields;
        for (const auto &field : set().fields->rows())
            fields.insert(field->key(), field.get());
        QStringList keys;
        for (const QString &line : rows.split(';')) {
            const Expected expected(line);
            keys.append(expected.key);
            const QByteArray where = expected.key.toUtf8();
            const QVariant value = fresh.r(expected.key)->value();
            QVERIFY2(value == expected.defaultValue(), where + ": default");
            QVERIFY2(value.userType() == expected.defaultValue().userType(), where + ": its type");
            QVERIFY2(stored.r(expected.key)->value().userType() == expected.storedType(),
                     where + ": stored type");
            const Field *field = fields.value(expected.key);
            if (expected.type == "twin")
                continue;
            QVERIFY2(field, where + ": there is no such row");
            QCOMPARE(field->editor() == nullptr, expected.type == "hidden");
            if (const auto *real = dynamic_cast<const RealField *>(field))
                QCOMPARE(real->isReadAsInteger(), expected.type == "trunc");
            if (!expected.range.isEmpty())
                checkRange(*field, expected);
            if (choiceContracts.contains(expected.type))
                checkItems(*field, choiceContracts.value(expected.type));
        }
        keys.sort();
        QCOMPARE(leaves(&fresh), keys); // no row that is not in the contract
    }
    void checkRange(const Field &field, const Expected &expected)
    {
        const double minimum = field.editor()->property("minimum").toDouble();
        const double maximum = field.editor()->property("maximum").toDouble();
        QVERIFY2(minimum == expected.range.section("..", 0, 0).toDouble()
                     && maximum == expected.range.section("..", 1, 1).toDouble(),
                 qPrintable(expected.key + ": range"));
    }
    void checkItems(const Field &field, const QString &expected)
    {
        const auto *combo = qobject_cast<QComboBox *>(field.editor());
        QStringList items;
        for (int i = 0; i < combo->count(); ++i)
            items.append(combo->itemText(i) + '=' + combo->itemData(i).toString());
        QCOMPARE(items.join('|'), expected);
    }

    void defaultIsWhatTheControlOffers_data()
    {
        addRows([](const Field &field) { return field.editor() && field.key() != "name"; });
    }
    void defaultIsWhatTheControlOffers()
    {
        kelp::ModuleObject file("file");
        fill(file);
        const bool shown = shownBy(row()) == row().defaultValue()
            || row().defaultValue().userType() == QMetaType::QVariantList;
        QCOMPARE(shown, !defaultsOutOfRange.contains(QTest::currentDataTag()));
    }

    void roundTrip_data()
    {
        addRows([](const Field &field) { return field.editor(); });
    }
    void roundTrip()
    {
        const QVariantList offered = offeredBy(row());
        QVERIFY2(!offered.isEmpty(), "this kind of field has no test; teach allsets.cpp");
        const auto *real = dynamic_cast<const RealField *>(&row());
        for (int i = 0; i < offered.size(); ++i) {
            kelp::ModuleObject file("file");
            fill(file);
            edit(row(), offered[i]);
            set().fields->store(&file);
            const QVariant stored = file.r(row().key())->value();
            QCOMPARE(stored, offered[i]);
            QCOMPARE(stored.userType(), offered[i].userType());
            if (real && !real->twinKey().isEmpty())
                QCOMPARE(file.r(real->twinKey())->value(), offered[i]);

            // An edit that is dropped again: the control shows what is stored.
            edit(row(), offered[(i + 1) % offered.size()]);
            set().fields->show(&file);
            if (row().key() != "name") // chosen with the combo, never shown from the file
                QCOMPARE(shownBy(row()), offered[i]);
        }
    }

    void numbersAreClamped_data()
    {
        addRows([](const Field &field) {
            return field.editor() && field.editor()->property("maximum").isValid()
                && !dynamic_cast<const IntegerListField *>(&field);
        });
    }
    void numbersAreClamped()
    {
        const QVariantList range = offeredBy(row());
        const double step = range.first().userType() == QMetaType::Int ? 1 : 0.01;
        for (const auto &[value, shown] :
             {std::pair{range.first().toDouble() - step, range.first()},
              std::pair{range.last().toDouble() + step, range.last()}}) {
            kelp::ModuleObject file("file");
            fill(file);
            file.set(this, row().key(), value);
            set().fields->show(&file);
            QCOMPARE(shownBy(row()), shown);
        }
        QCOMPARE(m_host.takeMessages(), QStringList());
    }

    void fractionsAreDropped_data()
    {
        addRows([](const Field &field) {
            const auto *real = dynamic_cast<const RealField *>(&field);
            return real && real->isReadAsInteger();
        });
    }
    void fractionsAreDropped()
    {
        QVERIFY(row().key().startsWith("anti_wire_stick_param."));
        kelp::ModuleObject file("file");
        fill(file);
        edit(row(), 12.5);
        set().fields->store(&file);
        QCOMPARE(file.r(row().key())->value(), QVariant(12.5));
        set().fields->show(&file);
        QCOMPARE(shownBy(row()), QVariant(12.0));
    }

    void unknownCodesSurvive_data()
    {
        addRows([](const Field &field) {
            const auto *choice = dynamic_cast<const ChoiceField *>(&field);
            return (choice && !choice->table().isBoolean())
                || dynamic_cast<const NameField *>(&field);
        });
    }
    void unknownCodesSurvive()
    {
        kelp::ModuleObject file("file7");
        fill(file);
        const QVariant before = shownBy(row());
        file.set(this, row().key(), "out_of_the_blue");
        set().fields->show(&file);
        const auto *combo = qobject_cast<QComboBox *>(row().editor());
        if (row().key() == "non_welded_speed")
            QCOMPARE(shownBy(row()), before); // stays on its present item
        else
            QCOMPARE(combo->currentIndex(), -1);
        const QStringList messages = m_host.takeMessages();
        QCOMPARE(messages.size(), 1);
        QVERIFY(messages.first().startsWith("warning: file7: "));
        QVERIFY(messages.first().contains("\"out_of_the_blue\" of \"" + row().key() + '"'));
        set().fields->store(&file);
        QCOMPARE(file.r(row().key())->getString(), QString("out_of_the_blue"));

        edit(row(), offeredBy(row()).last());
        set().fields->store(&file);
        QCOMPARE(file.r(row().key())->value(), offeredBy(row()).last());
    }

    void nothingElseIsStored_data()
    {
        QTest::addColumn<int>("set");
        for (size_t i = 0; i < m_sets.size(); ++i)
            QTest::addRow("%s", qPrintable(m_sets[i].name)) << int(i);
    }
    void nothingElseIsStored()
    {
        kelp::ModuleObject defaults("default");
        fill(defaults);
        QStringList own = leaves(&defaults);
        kelp::ModuleObject file("file");
        file.set(this, "stranger.inside", 7);
        for (const auto &field : set().fields->rows()) {
            if (field->editor())
                continue;
            file.set(this, field->key(), "as it was");
            own.removeOne(field->key());
        }
        const QStringList before = leaves(&file);
        set().fields->store(&file);
        QStringList expected = own + before;
        expected.sort();
        QCOMPARE(leaves(&file), expected);
        QCOMPARE(file.r("stranger.inside")->value(), QVariant(7));
        for (const auto &field : set().fields->rows())
            QCOMPARE(file.r(field->key())->getString() == "as it was", !field->editor());
    }
};

QTEST_MAIN(tst_FieldTables)
#include "tst_fieldtables.moc"
