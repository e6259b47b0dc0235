#pragma once

#include <QStringList>
#include <functional>
#include <optional>

#include "tl/finding.h"
#include "tl/moveline.h"
#include "tl/projectnames.h"

namespace welmo::tl {

/// Finds what is wrong in a program, with the same text models that the instruction forms stand on.
/// Lines of other instructions are not looked at.
class Checker
{
public:
    /// Without a project no name is looked up, and only what could not be a name is refused.
    explicit Checker(std::optional<ProjectNames> project = {});

    /// Every finding, by line and column. @p progress is told now and then how many lines are done.
    Findings check(const QStringList &lines, const std::function<void(int)> &progress = {}) const;

    /// What is wrong with one line by itself; @p number goes into the findings.
    Findings checkLine(const QString &line, int number) const;
    /// What stands alone of instructions that belong together; needs all lines of the program.
    static Findings checkPairs(const QStringList &lines);
    /// Puts findings in the order of lines and columns.
    static void sort(Findings &findings);

private:
    using Names = QSet<QString> ProjectNames::*;
    struct Place;

    Findings checkFiles(Instruction instruction, const QString &line) const;
    Findings checkMove(Instruction instruction, const QString &line) const;
    Findings checkPoint(const std::optional<Token> &token) const;
    Findings checkName(const std::optional<Token> &token, const Place &place) const;
    Findings checkWeave(const std::optional<Token> &token) const;
    Findings checkFile(const QString &file, int column, const QStringList &set) const;

    std::optional<ProjectNames> m_project;
};

} // namespace welmo::tl
