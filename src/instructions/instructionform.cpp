#include "instructions/instructionform.h"

#include "data/report.h"
#include "data/stylerules.h"

using namespace welmo;

InsertForm::InsertForm(line::Instruction instruction, QWidget *parent)
    : BaseContentWidget(parent)
    , m_instruction(instruction)
{
    setObjectName(line::instructionName(instruction) + QStringLiteral("InsertWidget"));
    applyStyleRules(this);
}

PropertyForm::PropertyForm(line::Instruction instruction, QWidget *parent)
    : BaseContentWidget(parent)
    , m_instruction(instruction)
{
    setObjectName(line::instructionName(instruction) + QStringLiteral("PropertyWidget"));
    applyStyleRules(this);
}

void PropertyForm::report(const line::Problems &problems)
{
    for (const line::Problem &problem : problems)
        report::error(this, line::shown(problem.message));
}
