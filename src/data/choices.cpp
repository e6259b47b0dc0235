#include "data/choices.h"

#include <QSignalBlocker>

namespace welmo::choices {

void fill(QComboBox *combo, const schema::ChoiceTable &table)
{
    combo->clear();
    for (const auto &choice : table.choices())
        combo->addItem(choice.shown(), choice.code);
}

QStringList refill(QComboBox *combo, const schema::ChoiceTable &table,
                   const QStringList &sourceTexts)
{
    const QSignalBlocker blocker(combo);
    const QVariant present = combo->currentData();
    QStringList unknown;
    if (sourceTexts.isEmpty())
        fill(combo, table);
    else
        combo->clear();
    for (const QString &text : sourceTexts) {
        if (const auto *choice = table.withText(text))
            combo->addItem(choice->shown(), choice->code);
        else
            unknown.append(text);
    }
    combo->setCurrentIndex(combo->findData(present));
    return unknown;
}

void choose(QComboBox *combo, const char *code)
{
    combo->setCurrentIndex(combo->findData(QString::fromLatin1(code)));
}

bool isItem(const QComboBox *combo, int index, const char *code)
{
    return combo->itemData(index).toString() == QLatin1String(code);
}

} // namespace welmo::choices
