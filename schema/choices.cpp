#include "schema/choices.h"

#include <QCoreApplication>
#include <algorithm>

namespace welmo::schema {

QString ChoiceTable::Choice::shown() const
{
    return QCoreApplication::translate("Choices", text);
}

const ChoiceTable::Choice *ChoiceTable::withText(const QString &text) const
{
    const auto choice = std::find_if(m_choices.begin(), m_choices.end(), [&](const Choice &each) {
        return text == QLatin1String(each.text) || text == each.shown();
    });
    return choice == m_choices.end() ? nullptr : &*choice;
}

namespace choices {

const ChoiceTable &workModes()
{
    static const ChoiceTable table{
        {codes::flatCharacteristic, QT_TRANSLATE_NOOP("Choices", "Flat Characteristic")},
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
        {codes::current, QT_TRANSLATE_NOOP("Choices", "Current")},
        {codes::wireFeed, QT_TRANSLATE_NOOP("Choices", "Wire Feed")},
    };
    return table;
}

const ChoiceTable &voltageModes()
{
    static const ChoiceTable table{
        {codes::unified, QT_TRANSLATE_NOOP("Choices", "Unified")},
        {codes::separate, QT_TRANSLATE_NOOP("Choices", "Separate")},
    };
    return table;
}

const ChoiceTable &arcBreakOptions()
{
    static const ChoiceTable table{
        {codes::continueRunning, QT_TRANSLATE_NOOP("Choices", "Continue Running")},
        {codes::stopAndAlarm, QT_TRANSLATE_NOOP("Choices", "Stop and Alarm")},
        {codes::autoArcReignition, QT_TRANSLATE_NOOP("Choices", "Auto Arc Reignition")},
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
        {codes::length, QT_TRANSLATE_NOOP("Choices", "Length")},
        {codes::cycle, QT_TRANSLATE_NOOP("Choices", "Period")},
    };
    return table;
}

const ChoiceTable &weavePatterns()
{
    static const ChoiceTable table{
        {codes::noWeaving, QT_TRANSLATE_NOOP("Choices", "No Weaving")},
        {codes::triangular, QT_TRANSLATE_NOOP("Choices", "Triangular")},
        {codes::sine, QT_TRANSLATE_NOOP("Choices", "Sine")},
        {codes::circular, QT_TRANSLATE_NOOP("Choices", "Circular")},
        {codes::figureEight, QT_TRANSLATE_NOOP("Choices", "Figure-8")},
    };
    return table;
}

const ChoiceTable &weaveDwellTypes()
{
    static const ChoiceTable table{
        {codes::robotStay, QT_TRANSLATE_NOOP("Choices", "Robot Stay")},
        // Not "weave_stay": the controller reads this word.
        {codes::weaveStop, QT_TRANSLATE_NOOP("Choices", "Weave Stay")},
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
        {codes::vPattern, QT_TRANSLATE_NOOP("Choices", "V-Pattern")},
        {codes::triangular, QT_TRANSLATE_NOOP("Choices", "Triangular")},
    };
    return table;
}

const ChoiceTable &segTypes()
{
    static const ChoiceTable table{
        {codes::normalSegment, QT_TRANSLATE_NOOP("Choices", "Normal")},
    };
    return table;
}

} // namespace choices

} // namespace welmo::schema
