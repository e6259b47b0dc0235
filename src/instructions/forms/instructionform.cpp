#include "instructions/forms/instructionform.h"

#include "data/report.h"
#include "widgets/stylerules.h"

using namespace welmo;

InsertForm::InsertForm(tl::Instruction instruction, QWidget *parent)
    : BaseContentWidget(parent)
    , m_instruction(instruction)
{
    setObjectName(tl::instructionName(instruction) + QStringLiteral("InsertWidget"));
    applyStyleRules(this);
}

PropertyForm::PropertyForm(tl::Instruction instruction, QWidget *parent)
    : BaseContentWidget(parent)
    , m_instruction(instruction)
{
    setObjectName(tl::instructionName(instruction) + QStringLiteral("PropertyWidget"));
    applyStyleRules(this);
}

void PropertyForm::report(const tl::Problems &problems)
{
    for (const tl::Problem &problem : problems)
        report::error(this, tl::shown(problem.message));
}
