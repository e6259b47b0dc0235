#pragma once

#include <QStringList>
#include <functional>
#include <optional>

#include "tl/finding.h"
#include "tl/parsedline.h"
#include "tl/projectnames.h"

namespace welmo::tl {

/// Finds what is wrong in a program: what its lines' property forms would say, what the project
/// does not have, and what cannot be meant. What it calls clean, the virtual controller carries
/// out. Lines whose word is nobody's here are not looked at, unless the word looks like an
/// instruction.
class Checker
{
public:
    /// Without a project no name is looked up, and only what could not be a name is refused.
    explicit Checker(std::optional<ProjectNames> project = {});

    /// Every finding, by line and column. @p progress is told now and then how many lines are done.
    Findings check(const QStringList &lines, const std::function<void(int)> &progress = {}) const;

    /// What is wrong with one line by itself; @p number goes into the findings.
    Findings checkLine(const ParsedLine &line, int number) const;
    /// Puts findings in the order of lines and columns.
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
