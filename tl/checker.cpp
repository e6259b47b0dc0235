#include "tl/checker.h"

#include <QCoreApplication>
#include <algorithm>

#include "tl/parse.h"
#include "tl/sequence.h"

namespace welmo::tl {

using FindingKind = Finding::Kind;

namespace {

constexpr int progressStep = 1000; // lines

constexpr auto noFile = QT_TRANSLATE_NOOP("ProgramCheck", "no file %1 in the project");
constexpr auto noPoint = QT_TRANSLATE_NOOP("ProgramCheck", "no point %1 in the project");
constexpr auto noSpeed = QT_TRANSLATE_NOOP("ProgramCheck", "no speed %1 in the project");
constexpr auto noZone = QT_TRANSLATE_NOOP("ProgramCheck", "no zone %1 in the project");
constexpr auto noTool = QT_TRANSLATE_NOOP("ProgramCheck", "no tool %1 in the project");
constexpr auto noWobj = QT_TRANSLATE_NOOP("ProgramCheck", "no work object %1 in the project");
constexpr auto nearWord =
    QT_TRANSLATE_NOOP("ProgramCheck", "%1 is no instruction; %2 may be meant");
constexpr auto notDone = QT_TRANSLATE_NOOP("ProgramCheck", "%1 is not carried out");
constexpr auto otherWobj =
    QT_TRANSLATE_NOOP("ProgramCheck", "%1 was taught in %2; the line uses %3");
constexpr auto otherTool =
    QT_TRANSLATE_NOOP("ProgramCheck", "%1 was taught with %2; the line uses %3");
constexpr auto samePoints =
    QT_TRANSLATE_NOOP("ProgramCheck", "the auxiliary point and the target are the same");

Finding ofProblem(const Problem &problem)
{
    const bool isMisread = problem.kind == Problem::Kind::Misread;
    return {0,
            problem.column,
            isMisread ? FindingKind::Misread : FindingKind::Refused,
            problem.message,
            problem.detail,
            problem.names};
}

Finding doubtful(int column, const char *detail, const QStringList &names)
{
    return {0, column, FindingKind::Doubtful, nullptr, detail, names};
}

// False for what cannot be a name and has a finding already.
bool isName(const Token &token)
{
    return !token.text.contains(QLatin1Char('"')) && !token.text.contains(QLatin1Char('('));
}

// Only for names that exist; the others have a worse finding already.
void checkTaught(const ParsedLine::Point &point, const QString &taught,
                 const std::optional<Token> &used, const QSet<QString> &names, const char *detail,
                 Findings *findings)
{
    if (used && names.contains(used->text) && !taught.isEmpty() && used->text != taught)
        findings->append(
            doubtful(used->column, detail, {point.reading.point.name, taught, used->text}));
}

} // namespace

Checker::Checker(std::optional<ProjectNames> project)
    : m_project(std::move(project))
{ }

Findings Checker::check(const QStringList &lines, const std::function<void(int)> &progress) const
{
    Findings findings;
    Sequence sequence;
    for (int i = 0; i < lines.size(); ++i) {
        const ParsedLine line = parse(lines.at(i));
        findings += checkLine(line, i);
        sequence.add(line, i);
        if (progress && (i + 1) % progressStep == 0)
            progress(i + 1);
    }
    findings += sequence.finish();
    sort(findings);
    return findings;
}

void Checker::sort(Findings &findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &a, const Finding &b) {
        return std::make_pair(a.line, a.column) < std::make_pair(b.line, b.column);
    });
}

Findings Checker::checkLine(const ParsedLine &line, int number) const
{
    Findings findings;
    for (const Problem &problem : line.problems)
        findings.append(ofProblem(problem));
    checkWord(line, &findings);
    if (line.instruction) {
        switch (line.instruction->kind) {
        case Kind::Files:
            checkFiles(line, &findings);
            break;
        case Kind::Move:
            checkMove(line, &findings);
            break;
        case Kind::Timed:
        case Kind::Bare:
            break;
        }
    }
    for (Finding &finding : findings)
        finding.line = number;
    return findings;
}

void Checker::checkWord(const ParsedLine &line, Findings *findings) const
{
    const QString &word = line.word.text;
    if (line.instruction) {
        if (line.instruction->standing == Standing::Unregistered)
            findings->append(doubtful(line.column(), notDone, {word}));
        return;
    }
    const bool isKnown = m_project && m_project->words.contains(word);
    if (const Instruction *meant = isKnown ? nullptr : meantBy(word))
        findings->append(doubtful(line.column(), nearWord, {word, meant->text()}));
}

void Checker::checkFiles(const ParsedLine &line, Findings *findings) const
{
    for (size_t i = 0; i < line.files.size(); ++i) {
        if (line.files[i])
            checkFile(*line.files[i], line.tokens.at(int(i) + 1).column, findings);
    }
}

void Checker::checkMove(const ParsedLine &line, Findings *findings) const
{
    if (line.isRefused)
        return;
    for (const auto &point : {line.aux, line.target}) {
        if (point)
            checkPoint(line, *point, findings);
    }
    if (line.aux && line.aux->reading.point == line.target->reading.point)
        findings->append(doubtful(line.target->token.column, samePoints, {}));
    checkName(line.speed, &ProjectNames::speeds, messages::speed, noSpeed, findings);
    checkName(line.zone, &ProjectNames::zones, messages::zone, noZone, findings);
    checkName(line.tool, &ProjectNames::tools, messages::tool, noTool, findings);
    checkName(line.wobj, &ProjectNames::wobjs, messages::wobj, noWobj, findings);
    const QString weave = line.weaveFile();
    if (weaveFileNames().contains(weave))
        checkFile(weave, line.weave->column, findings);
}

void Checker::checkPoint(const ParsedLine &line, const ParsedLine::Point &point,
                         Findings *findings) const
{
    if (!m_project)
        return;
    const QString &name = point.reading.point.name;
    const auto found = m_project->points.constFind(name);
    if (found == m_project->points.constEnd()) {
        findings->append({0, point.token.column, FindingKind::Unknown, nullptr, noPoint, {name}});
        return;
    }
    checkTaught(point, found->tool, line.tool, m_project->tools, otherTool, findings);
    checkTaught(point, found->wobj, line.wobj, m_project->wobjs, otherWobj, findings);
}

void Checker::checkName(const std::optional<Token> &token, Names names, const char *message,
                        const char *detail, Findings *findings) const
{
    if (token && isName(*token) && m_project && !((*m_project).*names).contains(token->text))
        findings->append({0, token->column, FindingKind::Unknown, message, detail, {token->text}});
}

void Checker::checkFile(const QString &file, int column, Findings *findings) const
{
    if (m_project && m_project->knowsFiles && !m_project->files.contains(file))
        findings->append({0, column, FindingKind::Unknown, nullptr, noFile, {file}});
}

} // namespace welmo::tl
