#pragma once

#include <QStringList>
#include <functional>
#include <optional>

#include "tl/finding.h"
#include "tl/parsedline.h"
#include "tl/projectnames.h"

namespace welmo::tl {

/// Finds what is wrong in a program: what its lines' property forms would report, what the project
/// does not have, and what cannot be meant. A line without findings can be carried out by the
/// virtual controller. Lines with an unknown word are not checked, unless the word looks like an
/// instruction.
class Checker
{
public:
    /// Without a project names are not looked up, only those that cannot be names are refused.
    explicit Checker(std::optional<ProjectNames> project = {});

    /// All findings, by line and column. @p progress is called now and then with the number of
    /// lines done.
    Findings check(const QStringList &lines, const std::function<void(int)> &progress = {}) const;

    /// The findings of one line by itself; @p number is put into them.
    Findings checkLine(const ParsedLine &line, int number) const;
    /// Sorts findings by line and column.
    static void sort(Findings &findings);

private:
    using Names = QSet<QString> ProjectNames::*;

    void checkWord(const ParsedLine &line, Findings *findings) const;
    void checkFiles(const ParsedLine &line, Findings *findings) const;
    void checkMove(const ParsedLine &line, Findings *findings) const;
    void checkPoint(const ParsedLine &line, const ParsedLine::Point &point,
                    Findings *findings) const;
    void checkName(const std::optional<Token> &token, Names names, const char *message,
                   const char *detail, Findings *findings) const;
    void checkFile(const QString &file, int column, Findings *findings) const;

    std::optional<ProjectNames> m_project;
};

} // namespace welmo::tl
