#pragma once

#include <QString>

namespace testsupport {

class TestPendant;

/// What an operator does on the program page. Throws OutOfReach like the finger.
class ProgramTouch
{
public:
    explicit ProgramTouch(TestPendant &pendant);

    /// Opens a program of the list.
    void open(const QString &name);
    /// Saves the program under this name in the pendant's folder.
    void saveAs(const QString &name);
    /// Touches the line, counted from 1.
    void choose(int line);
    /// Chooses the instruction in the menu, which opens its form.
    void insert(const QString &instruction);
    /// Touches the button with this text in the open question.
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
