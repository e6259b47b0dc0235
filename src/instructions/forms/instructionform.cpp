#include "instructions/forms/instructionform.h"

#include "data/report.h"
#include "tl/parse.h"
#include "widgets/stylerules.h"

namespace welmo {

InsertForm::InsertForm(tl::Word word, QWidget *parent)
    : BaseContentWidget(parent)
    , m_word(word)
{
    setObjectName(tl::row(word).text() + QStringLiteral("InsertWidget"));
    applyStyleRules(this);
}

PropertyForm::PropertyForm(tl::Word word, QWidget *parent)
    : BaseContentWidget(parent)
    , m_word(word)
{
    setObjectName(tl::row(word).text() + QStringLiteral("PropertyWidget"));
    applyStyleRules(this);
}

tl::ParsedLine PropertyForm::read(const QString &line) const
{
    return tl::parseAs(m_word, line);
}

void PropertyForm::report(const tl::Problems &problems)
{
    for (const tl::Problem &problem : problems)
        report::error(this, tl::shown(problem.message));
}

} // namespace welmo
