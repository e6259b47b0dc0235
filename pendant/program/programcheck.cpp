#include "pendant/program/programcheck.h"

#include <algorithm>

#include "pendant/program/hostproject.h"
#include "pendant/program/programdocument.h"
#include "schema/filesets.h"
#include "tessa/managerhelper.h"
#include "tl/parse.h"

namespace welmo::pendant {

namespace {

constexpr int sliceLines = 1000;

} // namespace

ProgramCheck::ProgramCheck(ProgramDocument *document, QObject *parent)
    : QObject(parent)
    , m_document(document)
{
    connect(&m_slices, &QTimer::timeout, this, &ProgramCheck::checkSlice);
    connect(document, &ProgramDocument::contentsChanged, this, &ProgramCheck::restart);
    connect(tessa::ManagerHelper::instance()->controllerManager(),
            &tessa::ControllerManager::rcConnected, this, &ProgramCheck::refreshProject);
    followHostProject(this, [this] { refreshProject(); });
    followFiles();
    restart();
}

void ProgramCheck::refreshProject()
{
    m_projectIsStale = true;
    restart();
}

void ProgramCheck::restart()
{
    m_next = 0;
    m_coming.clear();
    m_sequence = {};
    m_comingUses = {};
    m_slices.start(0);
}

void ProgramCheck::takeProject()
{
    if (!std::exchange(m_projectIsStale, false))
        return;
    const auto project = hostProject();
    m_files = project ? project->files : QSet<QString>();
    m_checker = tl::Checker(project);
}

// Another pendant may create and remove files.
void ProgramCheck::followFiles()
{
    for (const schema::FileSet *set : schema::fileSets()) {
        xservice()->watch(this, set->node(), true);
        connect(xservice()->watchNode(set->node()), &kelp::ModuleObject::changed, this,
                [this](const QVariant &files) { onFilesChanged(files.toMap()); });
    }
}

void ProgramCheck::onFilesChanged(const QVariantMap &files)
{
    for (auto file = files.begin(); file != files.end(); ++file) {
        const bool isThere = file.value().toMap().contains(QStringLiteral("name"));
        if (isThere != m_files.contains(file.key())) {
            refreshProject();
            return;
        }
    }
}

void ProgramCheck::checkSlice()
{
    takeProject();
    if (m_next == 0)
        m_lines = m_document->text().lines();
    const int end = std::min(m_next + sliceLines, int(m_lines.size()));
    for (; m_next < end; ++m_next) {
        const tl::ParsedLine line = tl::parse(m_lines.at(m_next));
        m_coming += m_checker.checkLine(line, m_next);
        m_sequence.add(line, m_next);
        m_comingUses.add(line, m_next);
    }
    if (m_next == m_lines.size())
        finish();
}

void ProgramCheck::finish()
{
    m_slices.stop();
    m_coming += m_sequence.finish();
    tl::Checker::sort(m_coming);
    m_findings = std::exchange(m_coming, {});
    m_uses = std::exchange(m_comingUses, {});
    m_lines.clear();
    m_byLine.clear();
    for (int i = m_findings.size() - 1; i >= 0; --i) // the hash returns the newest first
        m_byLine.insert(m_findings.at(i).line, i);
    emit checked();
}

tl::Findings ProgramCheck::findingsOf(const tl::ParsedLine &line)
{
    takeProject();
    return m_checker.checkLine(line, 0);
}

QString ProgramCheck::textAt(int line) const
{
    QStringList texts;
    for (int position : m_byLine.values(line))
        texts.append(m_findings.at(position).text());
    return texts.join(QLatin1Char('\n'));
}

const FileUses &ProgramCheck::uses()
{
    while (m_slices.isActive())
        checkSlice();
    return m_uses;
}

int ProgramCheck::nextAfter(int line) const
{
    if (m_findings.isEmpty())
        return -1;
    const auto next = std::find_if(m_findings.begin(), m_findings.end(),
                                   [line](const auto &finding) { return finding.line > line; });
    return next == m_findings.end() ? m_findings.first().line : next->line;
}

} // namespace welmo::pendant
