#pragma once

#include <QString>
#include <QVariant>
#include <vector>

namespace welmo::schema {

/// The possible values of one kind that a file stores, each with the text that is shown for it.
class ChoiceTable
{
public:
    struct Choice
    {
        QVariant code; ///< what is stored: a keyword or a bool
        const char *text; ///< source text, translated in the context "Choices"

        Choice(const char *keyword, const char *sourceText)
            : code(QString::fromLatin1(keyword))
            , text(sourceText)
        { }
        Choice(bool state, const char *sourceText)
            : code(state)
            , text(sourceText)
        { }
        /// The text in the language of the pendant.
        QString shown() const;
    };

    ChoiceTable(std::initializer_list<Choice> choices)
        : m_choices(choices)
    { }

    const std::vector<Choice> &choices() const { return m_choices; }
    /// The choice with this source text or shown text; null if there is none.
    const Choice *withText(const QString &text) const;
    /// Whether a bool is stored instead of a keyword.
    bool isBoolean() const { return m_choices.front().code.userType() == QMetaType::Bool; }

private:
    std::vector<Choice> m_choices;
};

/// The codes that rules of the package or the controller refer to.
namespace codes {

inline constexpr char flatCharacteristic[] = "flat_characteristic";
inline constexpr char current[] = "current";
inline constexpr char wireFeed[] = "wire_feed";
inline constexpr char unified[] = "unified";
inline constexpr char separate[] = "separate";
inline constexpr char continueRunning[] = "continue_running";
inline constexpr char stopAndAlarm[] = "stop_and_alarm";
inline constexpr char autoArcReignition[] = "auto_arc_reignition";
inline constexpr char length[] = "length";
inline constexpr char cycle[] = "cycle";
inline constexpr char noWeaving[] = "no_weaving";
inline constexpr char triangular[] = "triangular"; ///< a pattern, and a type of elevation
inline constexpr char sine[] = "sine";
inline constexpr char circular[] = "circular";
inline constexpr char figureEight[] = "figure_8";
inline constexpr char robotStay[] = "robot_stay";
inline constexpr char weaveStop[] = "weave_stop"; ///< not "weave_stay"
inline constexpr char vPattern[] = "v_pattern";
inline constexpr char normalSegment[] = "normal";

} // namespace codes

namespace choices {

const ChoiceTable &workModes();
const ChoiceTable &currentModes();
const ChoiceTable &voltageModes();
const ChoiceTable &arcBreakOptions();
/// "Open" and "Close", stored as true and false.
const ChoiceTable &switches();
/// As switches(), "Close" first.
const ChoiceTable &modeSwitch();
const ChoiceTable &weaveReferences();
const ChoiceTable &weavePatterns();
const ChoiceTable &weaveDwellTypes();
/// "Normal" and "Reverse", stored as false and true.
const ChoiceTable &waveformDirections();
const ChoiceTable &elevationTypes();
const ChoiceTable &segTypes();

} // namespace choices

} // namespace welmo::schema
