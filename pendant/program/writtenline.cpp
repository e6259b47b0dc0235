#include "pendant/program/writtenline.h"

#include <QCoreApplication>
#include <algorithm>

#include "pendant/program/programcheck.h"
#include "tl/normalform.h"
#include "tl/parse.h"

namespace welmo::pendant {

using tl::Finding;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(WrittenLine)
};

// An argument without a name shows as commas with nothing between.
bool lacksName(const QString &written)
{
    const QStringList holes{QStringLiteral(" ,"), QStringLiteral(",,"), QStringLiteral("(,")};
    return std::any_of(holes.begin(), holes.end(),
                       [&written](const QString &hole) { return written.contains(hole); })
        || written.endsWith(QLatin1Char(','));
}

// Whether a form cannot have meant this. A file or point that the project lacks is allowed.
bool refuses(const Finding &finding)
{
    return finding.message;
}

QString refusalOfLine(const tl::ParsedLine &line, const tl::Findings &findings)
{
    if (line.instruction->kind == tl::Kind::Move && lacksName(line.text))
        return Text::tr("a name is missing; choose a point, or make one with \"New point here\"");
    const auto refused = std::find_if(findings.begin(), findings.end(), refuses);
    if (refused != findings.end())
        return refused->text();
    return tl::normalCode(line).isNull() ? Text::tr("it holds a name that no line can hold")
                                         : QString();
}

} // namespace

QString refusalOf(const QString &written, ProgramCheck *check)
{
    const tl::ParsedLine line = tl::parse(written);
    if (!line.instruction || line.instruction->standing == tl::Standing::Host)
        return {};
    return refusalOfLine(line, check->findingsOf(line));
}

} // namespace welmo::pendant
