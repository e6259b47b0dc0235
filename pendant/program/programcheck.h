#pragma once

#include <QHash>
#include <QTimer>

#include "pendant/program/fileuses.h"
#include "tl/checker.h"
#include "tl/sequence.h"

namespace welmo::pendant {

class ProgramDocument;

/// What is wrong in the program, by line; follows every change of the program and of the project.
/// A long program is checked in slices, so that the pendant stays alive meanwhile.
class ProgramCheck : public QObject
{
    Q_OBJECT
public:
    explicit ProgramCheck(ProgramDocument *document, QObject *parent = nullptr);

    /// Looks the project up anew.
    void refreshProject();

    /// What is wrong with a line that is not, or not yet, in the program.
    tl::Findings findingsOf(const tl::ParsedLine &line);
    bool isWrong(int line) const { return m_byLine.contains(line); }
    /// One finding a line of text; empty when there is none.
    QString textAt(int line) const;
    int count() const { return m_findings.size(); }
    /// The first line after @p line in which something is wrong, from the top again; -1 when none.
    int nextAfter(int line) const;
    /// What the program names; looks at what is left of it first.
    const FileUses &uses();

signals:
    /// The whole program was looked at.
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
    QSet<QString> m_files; // that there are, as the checker knows them
    QStringList m_lines;
    int m_next = 0; // of m_lines
    tl::Sequence m_sequence;
    tl::Findings m_coming;
    FileUses m_comingUses;
    FileUses m_uses;
    tl::Findings m_findings;
    QMultiHash<int, int> m_byLine; // positions in m_findings
};

} // namespace welmo::pendant
