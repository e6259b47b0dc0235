#include "tl/parsedline.h"

#include "tl/charactercheck.h"

namespace welmo::tl {

QString ParsedLine::weaveFile() const
{
    const QString name = weave ? CharacterCheck::checkQuotationMarks(weave->text) : QString();
    return name == noWeave ? QString() : name;
}

} // namespace welmo::tl
