#include "data/choices.h"

#include <QCoreApplication>
#include <QSignalBlocker>
#include <algorithm>

namespace welmo {

namespace {

QString shown(const char *text)
{
    return QCoreApplication::translate("Choices", text);
}

} // namespace

void ChoiceTable::fill(QComboBox *combo) const
{
    combo->clear();
    for (const Choice &choice : m_choices)
        combo->addItem(shown(choice.text), choice.code);
}

QStringList ChoiceTable::refill(QComboBox *combo, const QStringList &sourceTexts) const
{
    const QSignalBlocker blocker(combo);
    const QVariant present = combo->currentData();
    QStringList unknown;
    combo->clear();
    for (const QString &text : sourceTexts) {
        const auto choice = std::find_if(m_choices.begin(), m_choices.end(), [&](const Choice &c) {
            return text == QLatin1String(c.text);
        });
        if (choice == m_choices.end())
            unknown.append(text);
        else
            combo->addItem(shown(choice->text), choice->code);
    }
    combo->setCurrentIndex(combo->findData(present));
    return unknown;
}

namespace choices {

const ChoiceTable &workModes()
{
    static const ChoiceTable table{
        {"flat_characteristic", QT_TRANSLATE_NOOP("Choices", "Flat Characteristic")},
        {"low_spatter", QT_TRANSLATE_NOOP("Choices", "Low Spatter")},
        {"pulse", QT_TRANSLATE_NOOP("Choices", "Pulse")},
        {"double_pulse", QT_TRANSLATE_NOOP("Choices", "Double Pulse")},
        {"dc_spot_welding", QT_TRANSLATE_NOOP("Choices", "DC Spot Welding")},
        {"pulsed_spot_welding", QT_TRANSLATE_NOOP("Choices", "Pulsed Spot Welding")},
        {"deep_penetration", QT_TRANSLATE_NOOP("Choices", "Deep Penetration")},
        {"fast_pulse", QT_TRANSLATE_NOOP("Choices", "Fast Pulse")},
        {"low_spatter_spot_welding", QT_TRANSLATE_NOOP("Choices", "Low Spatter Spot Welding")},
        {"asmt", QT_TRANSLATE_NOOP("Choices", "ASMT")},
        {"asmt_spot_welding", QT_TRANSLATE_NOOP("Choices", "ASMT Spot Welding")},
        {"job", QT_TRANSLATE_NOOP("Choices", "Job")},
    };
    return table;
}

const ChoiceTable &currentModes()
{
    static const ChoiceTable table{
        {"current", QT_TRANSLATE_NOOP("Choices", "Current")},
        {"wire_feed", QT_TRANSLATE_NOOP("Choices", "Wire Feed")},
    };
    return table;
}

const ChoiceTable &voltageModes()
{
    static const ChoiceTable table{
        {"unified", QT_TRANSLATE_NOOP("Choices", "Unified")},
        {"separate", QT_TRANSLATE_NOOP("Choices", "Separate")},
    };
    return table;
}

const ChoiceTable &arcBreakOptions()
{
    static const ChoiceTable table{
        {"continue_running", QT_TRANSLATE_NOOP("Choices", "Continue Running")},
        {"stop_and_alarm", QT_TRANSLATE_NOOP("Choices", "Stop and Alarm")},
        {"auto_arc_reignition", QT_TRANSLATE_NOOP("Choices", "Auto Arc Reignition")},
    };
    return table;
}

const ChoiceTable &switches()
{
    static const ChoiceTable table{
        {true, QT_TRANSLATE_NOOP("Choices", "Open")},
        {false, QT_TRANSLATE_NOOP("Choices", "Close")},
    };
    return table;
}

const ChoiceTable &modeSwitch()
{
    static const ChoiceTable table{
        {false, QT_TRANSLATE_NOOP("Choices", "Close")},
        {true, QT_TRANSLATE_NOOP("Choices", "Open")},
    };
    return table;
}

const ChoiceTable &weaveReferences()
{
    static const ChoiceTable table{
        {"length", QT_TRANSLATE_NOOP("Choices", "Length")},
        {"cycle", QT_TRANSLATE_NOOP("Choices", "Period")},
    };
    return table;
}

const ChoiceTable &weavePatterns()
{
    static const ChoiceTable table{
        {"no_weaving", QT_TRANSLATE_NOOP("Choices", "No Weaving")},
        {"triangular", QT_TRANSLATE_NOOP("Choices", "Triangular")},
        {"sine", QT_TRANSLATE_NOOP("Choices", "Sine")},
        {"circular", QT_TRANSLATE_NOOP("Choices", "Circular")},
        {"figure_8", QT_TRANSLATE_NOOP("Choices", "Figure-8")},
    };
    return table;
}

const ChoiceTable &weaveDwellTypes()
{
    static const ChoiceTable table{
        {"robot_stay", QT_TRANSLATE_NOOP("Choices", "Robot Stay")},
        // Not "weave_stay": the controller reads this word.
        {"weave_stop", QT_TRANSLATE_NOOP("Choices", "Weave Stay")},
    };
    return table;
}

const ChoiceTable &waveformDirections()
{
    static const ChoiceTable table{
        {false, QT_TRANSLATE_NOOP("Choices", "Normal")},
        {true, QT_TRANSLATE_NOOP("Choices", "Reverse")},
    };
    return table;
}

const ChoiceTable &elevationTypes()
{
    static const ChoiceTable table{
        {"v_pattern", QT_TRANSLATE_NOOP("Choices", "V-Pattern")},
        {"triangular", QT_TRANSLATE_NOOP("Choices", "Triangular")},
    };
    return table;
}

const ChoiceTable &segTypes()
{
    static const ChoiceTable table{
        {"normal", QT_TRANSLATE_NOOP("Choices", "Normal")},
    };
    return table;
}

} // namespace choices

} // namespace welmo
