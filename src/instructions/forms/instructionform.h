#pragma once

#include <tessa/basecontentwidget.h>

#include "tl/instruction.h"

/// What all insert forms have in common: they write new lines and read none.
class InsertForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    /// The object name is the instruction's followed by "InsertWidget".
    InsertForm(welmo::tl::Instruction instruction, QWidget *parent);

    void FillWith(const QString &) override { }
    bool CheckInsert() override { return true; }

protected:
    welmo::tl::Instruction instruction() const { return m_instruction; }

private:
    welmo::tl::Instruction m_instruction;
};

/// What all property forms have in common: they read a line and write it anew.
class PropertyForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    /// The object name is the instruction's followed by "PropertyWidget".
    PropertyForm(welmo::tl::Instruction instruction, QWidget *parent);

    bool CheckReplace() override { return true; }

protected:
    welmo::tl::Instruction instruction() const { return m_instruction; }
    /// Tells each problem in the message log, with this form as the sender.
    void report(const welmo::tl::Problems &problems);

private:
    welmo::tl::Instruction m_instruction;
};
