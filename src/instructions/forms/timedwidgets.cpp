#include "instructions/forms/timedwidgets.h"

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <limits>

#include "tl/lineformat.h"

namespace welmo {

namespace {

// Adds the row with the time, which both kinds of form show.
QDoubleSpinBox *addTimeRow(QWidget *form, tl::Word word)
{
    constexpr double shortest = 0.1;
    auto *box = new QDoubleSpinBox(form);
    box->setObjectName(QStringLiteral("sbxTime"));
    box->setRange(shortest, std::numeric_limits<double>::max());
    box->setSingleStep(shortest);
    box->setValue(shortest);
    box->setAccelerated(true);
    auto *layout = new QFormLayout(form);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layout->addRow(tl::shown(tl::row(word).timeLabel), box);
    return box;
}

} // namespace

TimedInsertWidget::TimedInsertWidget(tl::Word word, QWidget *parent)
    : InsertForm(word, parent)
    , sbxTime(addTimeRow(this, word))
{ }

QString TimedInsertWidget::ToString()
{
    return tl::formatTimedLine(word(), sbxTime->value());
}

TimedPropertyWidget::TimedPropertyWidget(tl::Word word, QWidget *parent)
    : PropertyForm(word, parent)
    , sbxTime(addTimeRow(this, word))
{ }

void TimedPropertyWidget::FillWith(const QString &line)
{
    const tl::ParsedLine parsed = read(line);
    if (parsed.seconds)
        sbxTime->setValue(*parsed.seconds);
    report(parsed.problems);
}

QString TimedPropertyWidget::ToString()
{
    return tl::formatTimedLine(word(), sbxTime->value());
}

} // namespace welmo
