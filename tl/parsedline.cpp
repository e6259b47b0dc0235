#include "tl/parsedline.h"

#include "tl/charactercheck.h"

namespace welmo::tl {

QString ParsedLine::weaveFile() const
{
    const QString name = weave ? CharacterCheck::checkQuotationMarks(weave->text) : QString();
    return name == noWeave ? QString() : name;
}

bool ParsedLine::isWeldMove() const
{
    return instruction && instruction->kind == Kind::Move && instruction->standing != Standing::Host
        && !isRefused;
}

} // namespace welmo::tl
