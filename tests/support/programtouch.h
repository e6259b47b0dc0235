#pragma once

#include <QString>

namespace testsupport {

class TestPendant;

/// The program page as an operator works on it. Throws OutOfReach as the finger does.
class ProgramTouch
{
public:
    explicit ProgramTouch(TestPendant &pendant);

    /// Opens a program that the pendant lists.
    void open(const QString &name);
    /// Keeps the program under the name in the pendant's own folder.
    void saveAs(const QString &name);
    /// Touches the line, counted from 1.
    void choose(int line);
    /// Chooses the instruction in the menu, so that its form is open.
    void insert(const QString &instruction);
    /// Touches the button of that text in the question that is open.
    void answer(const QString &button);
    /// True when a question is open.
    bool isAsked() const;

    /// The text of the line, counted from 1; null when there is none.
    QString line(int line) const;
    int lineCount() const;
    QString title() const;

private:
    TestPendant &m_pendant;
};

} // namespace testsupport
