#pragma once

#include <QHash>
#include <QTimer>

#include "pendant/program/fileuses.h"
#include "tl/checker.h"
#include "tl/sequence.h"

namespace welmo::pendant {

class ProgramDocument;

/// The findings in the program, by line, updated with every change of the program and the project.
/// A long program is checked in slices, so that the pendant can react meanwhile.
class ProgramCheck : public QObject
{
    Q_OBJECT
public:
    explicit ProgramCheck(ProgramDocument *document, QObject *parent = nullptr);

    /// Reads the project again.
    void refreshProject();

    /// The findings of a line that is not, or not yet, in the program.
    tl::Findings findingsOf(const tl::ParsedLine &line);
    bool isWrong(int line) const { return m_byLine.contains(line); }
    /// One finding on each line of the text; empty if there are none.
    QString textAt(int line) const;
    int count() const { return m_findings.size(); }
    /// The next line after @p line with a finding, starting over from the top; -1 if there is none.
    int nextAfter(int line) const;
    /// What the program names; the rest of it is checked first if necessary.
    const FileUses &uses();

signals:
    /// The whole program has been checked.
    void checked();

private:
    void restart();
    void takeProject();
    void followFiles();
    void onFilesChanged(const QVariantMap &files);
    void checkSlice();
    void finish();

    ProgramDocument *m_document;
    QTimer m_slices;
    bool m_projectIsStale = true;
    tl::Checker m_checker;
    QSet<QString> m_files; // the existing files, as the checker was told
    QStringList m_lines;
    int m_next = 0; // index in m_lines
    tl::Sequence m_sequence;
    tl::Findings m_coming;
    FileUses m_comingUses;
    FileUses m_uses;
    tl::Findings m_findings;
    QMultiHash<int, int> m_byLine; // index in m_findings, by line
};

} // namespace welmo::pendant
