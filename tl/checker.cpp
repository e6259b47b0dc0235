#include "tl/checker.h"

#include <QCoreApplication>
#include <algorithm>

#include "tl/charactercheck.h"
#include "tl/fileline.h"
#include "tl/pointexpression.h"
#include "tl/timedline.h"
#include "tl/wordline.h"

namespace welmo::tl {

using Kind = Finding::Kind;

namespace {

constexpr int progressStep = 1000; // lines

const char *const noFile = QT_TRANSLATE_NOOP("ProgramCheck", "no file %1 in the project");
const char *const noPoint = QT_TRANSLATE_NOOP("ProgramCheck", "no point %1 in the project");
const char *const readAs = QT_TRANSLATE_NOOP("ProgramCheck", "%1 is read as %2");

// Two instructions that belong together, and what is said of one that stands alone.
struct Pair
{
    Instruction on;
    Instruction off;
    const char *onAlone;
    const char *offAlone;
};

constexpr Pair pairs[] = {
    {Instruction::ArcOn, Instruction::ArcOff,
     QT_TRANSLATE_NOOP("ProgramCheck", "ArcOn without ArcOff"),
     QT_TRANSLATE_NOOP("ProgramCheck", "ArcOff without ArcOn")},
    {Instruction::WeaveOn, Instruction::WeaveOff,
     QT_TRANSLATE_NOOP("ProgramCheck", "WeaveOn without WeaveOff"),
     QT_TRANSLATE_NOOP("ProgramCheck", "WeaveOff without WeaveOn")},
};

Finding unpaired(int line, int column, const char *detail)
{
    return {line, column, Kind::Unpaired, nullptr, detail, {}};
}

// Goes through the lines in the order in which they are written.
Findings unpairedLines(const QStringList &lines, const Pair &pair)
{
    Findings findings;
    int open = -1;
    const auto reportOpen = [&] {
        if (open >= 0)
            findings.append(unpaired(open, textColumn(lines.at(open)), pair.onAlone));
    };
    for (int i = 0; i < lines.size(); ++i) {
        const Instruction instruction = classify(lines.at(i));
        if (instruction == pair.on) {
            reportOpen();
            open = i;
        } else if (instruction == pair.off) {
            if (open < 0)
                findings.append(unpaired(i, textColumn(lines.at(i)), pair.offAlone));
            open = -1;
        }
    }
    reportOpen();
    return findings;
}

Findings refusals(const Problems &problems)
{
    Findings findings;
    for (const Problem &problem : problems)
        findings.append({0, problem.column, Kind::Refused, problem.message, nullptr, {}});
    return findings;
}

bool isWord(const QString &name)
{
    return !name.contains(QLatin1Char('"')) && !name.contains(QLatin1Char('('));
}

} // namespace

/// Where a name of a kind stands in a move, and what is said when there is none.
struct Checker::Place
{
    Names names;
    const char *message;
    const char *detail;
};

Checker::Checker(std::optional<ProjectNames> project)
    : m_project(std::move(project))
{ }

Findings Checker::check(const QStringList &lines, const std::function<void(int)> &progress) const
{
    Findings findings;
    for (int i = 0; i < lines.size(); ++i) {
        findings += checkLine(lines.at(i), i);
        if (progress && (i + 1) % progressStep == 0)
            progress(i + 1);
    }
    findings += checkPairs(lines);
    sort(findings);
    return findings;
}

Findings Checker::checkPairs(const QStringList &lines)
{
    Findings findings;
    for (const Pair &pair : pairs)
        findings += unpairedLines(lines, pair);
    return findings;
}

void Checker::sort(Findings &findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &a, const Finding &b) {
        return std::make_pair(a.line, a.column) < std::make_pair(b.line, b.column);
    });
}

Findings Checker::checkLine(const QString &line, int number) const
{
    Findings findings;
    const Instruction instruction = classify(line);
    switch (instruction) {
    case Instruction::None:
        break;
    case Instruction::WMoveL:
    case Instruction::WMoveC:
        findings = checkMove(instruction, line);
        break;
    case Instruction::FeedOnWire:
    case Instruction::FeedBackWire:
    case Instruction::DetectGas:
        findings = refusals(parseTimedLine(instruction, line).problems);
        break;
    case Instruction::WeaveOff:
    case Instruction::SegOff:
        findings = refusals(checkWordLine(instruction, line));
        break;
    default:
        findings = checkFiles(instruction, line);
    }
    for (Finding &finding : findings)
        finding.line = number;
    return findings;
}

Findings Checker::checkFiles(Instruction instruction, const QString &line) const
{
    const FileLine parsed = parseFileLine(instruction, line);
    Findings findings;
    for (size_t i = 0; i < parsed.files.size(); ++i) {
        if (parsed.files[i])
            findings +=
                checkFile(*parsed.files[i], parsed.columns[i], fileNames(instruction, int(i)));
    }
    return findings + refusals(parsed.problems);
}

Findings Checker::checkMove(Instruction instruction, const QString &line) const
{
    static const Place speed{&ProjectNames::speeds, messages::speed,
                             QT_TRANSLATE_NOOP("ProgramCheck", "no speed %1 in the project")};
    static const Place zone{&ProjectNames::zones, messages::zone,
                            QT_TRANSLATE_NOOP("ProgramCheck", "no zone %1 in the project")};
    static const Place tool{&ProjectNames::tools, messages::tool,
                            QT_TRANSLATE_NOOP("ProgramCheck", "no tool %1 in the project")};
    static const Place wobj{&ProjectNames::wobjs, messages::wobj,
                            QT_TRANSLATE_NOOP("ProgramCheck", "no work object %1 in the project")};
    const MoveLine move = parseMoveLine(instruction, line);
    return refusals(move.problems) + checkPoint(move.aux) + checkPoint(move.target)
        + checkName(move.speed, speed) + checkName(move.zone, zone) + checkName(move.tool, tool)
        + checkName(move.wobj, wobj) + checkWeave(move.weave);
}

Findings Checker::checkPoint(const std::optional<Token> &token) const
{
    if (!token)
        return {};
    Findings findings;
    const PointExpression point = PointExpression::parse(token->text);
    if (!readsAsWritten(token->text)) {
        const QString read = point.format(PointExpression::spellingOf(token->text));
        findings.append(
            {0, token->column, Kind::Misread, messages::point, readAs, {token->text, read}});
    }
    if (m_project && !m_project->points.contains(point.name))
        findings.append({0, token->column, Kind::Unknown, nullptr, noPoint, {point.name}});
    return findings;
}

Findings Checker::checkName(const std::optional<Token> &token, const Place &place) const
{
    if (!token)
        return {};
    if (!isWord(token->text)) // nothing can have such a name
        return {{0, token->column, Kind::Refused, place.message, nullptr, {}}};
    if (!m_project || ((*m_project).*(place.names)).contains(token->text))
        return {};
    return {{0, token->column, Kind::Unknown, place.message, place.detail, {token->text}}};
}

Findings Checker::checkWeave(const std::optional<Token> &token) const
{
    if (!token)
        return {};
    const QString name = CharacterCheck::checkQuotationMarks(token->text);
    if (name == noWeave)
        return {};
    const QStringList &files = weaveFileNames();
    if (!files.contains(name))
        return {{0, token->column, Kind::Refused, messages::weaveData, nullptr, {}}};
    return checkFile(name, token->column, files);
}

Findings Checker::checkFile(const QString &file, int column, const QStringList &set) const
{
    if (!m_project || m_project->files.contains(file))
        return {};
    const bool isSetUp = std::any_of(set.begin(), set.end(), [this](const QString &name) {
        return m_project->files.contains(name);
    });
    if (!isSetUp)
        return {};
    return {{0, column, Kind::Unknown, nullptr, noFile, {file}}};
}

} // namespace welmo::tl
