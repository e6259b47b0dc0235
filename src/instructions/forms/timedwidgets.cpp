#include "instructions/forms/timedwidgets.h"

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <limits>

#include "tl/timedline.h"

using namespace welmo::tl;

namespace {

QString labelText(Instruction instruction)
{
    switch (instruction) {
    case Instruction::FeedOnWire:
        return TimedInsertWidget::tr("Feed Wire Time(s): ");
    case Instruction::FeedBackWire:
        return TimedInsertWidget::tr("Back Wire Time(s): ");
    default:
        return TimedInsertWidget::tr("Detect Gas Time(s): ");
    }
}

// Both kinds of form show the same row.
QDoubleSpinBox *addTimeRow(QWidget *form, Instruction instruction)
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
    layout->addRow(labelText(instruction), box);
    return box;
}

} // namespace

TimedInsertWidget::TimedInsertWidget(Instruction instruction, QWidget *parent)
    : InsertForm(instruction, parent)
    , sbxTime(addTimeRow(this, instruction))
{ }

QString TimedInsertWidget::ToString()
{
    return formatTimedLine(instruction(), sbxTime->value());
}

TimedPropertyWidget::TimedPropertyWidget(Instruction instruction, QWidget *parent)
    : PropertyForm(instruction, parent)
    , sbxTime(addTimeRow(this, instruction))
{ }

void TimedPropertyWidget::FillWith(const QString &line)
{
    const TimedLine parsed = parseTimedLine(instruction(), line);
    if (parsed.seconds)
        sbxTime->setValue(*parsed.seconds);
    report(parsed.problems);
}

QString TimedPropertyWidget::ToString()
{
    return formatTimedLine(instruction(), sbxTime->value());
}
