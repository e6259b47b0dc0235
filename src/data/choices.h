#pragma once

#include <QComboBox>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

namespace welmo {

/// The values of one kind that a file stores, each with the text that a combo box shows for it.
///
/// A combo item carries its stored value as item data, so nothing ever compares or stores a shown
/// text, whatever the language.
class ChoiceTable
{
public:
    struct Choice
    {
        QVariant code; ///< what the file stores: a keyword or a bool
        const char *text; ///< source text, translated in the context "Choices"
    };

    ChoiceTable(std::initializer_list<Choice> choices)
        : m_choices(choices)
    { }

    const std::vector<Choice> &choices() const { return m_choices; }
    /// Whether the file stores a bool rather than a keyword.
    bool isBoolean() const { return m_choices.front().code.userType() == QMetaType::Bool; }

    /// Clears the combo and offers every choice, in the table's order.
    void fill(QComboBox *combo) const;
    /// Clears the combo and offers the choices with these source texts, in the list's order; the
    /// user's present choice is kept where it is still offered, and signals stay blocked. Texts
    /// that the table does not know are left out and returned.
    QStringList refill(QComboBox *combo, const QStringList &sourceTexts) const;

private:
    std::vector<Choice> m_choices;
};

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

} // namespace welmo
