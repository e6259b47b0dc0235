#pragma once

#include <tessa/basecontentwidget.h>

#include "tl/parsedline.h"

/// What all insert forms have in common: they write new lines and read none.
class InsertForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    /// The object name is the instruction's followed by "InsertWidget".
    InsertForm(welmo::tl::Word word, QWidget *parent);

    void FillWith(const QString &) override { }
    bool CheckInsert() override { return true; }

protected:
    welmo::tl::Word word() const { return m_word; }

private:
    welmo::tl::Word m_word;
};

/// What all property forms have in common: they read a line and write it anew.
class PropertyForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    /// The object name is the instruction's followed by "PropertyWidget".
    PropertyForm(welmo::tl::Word word, QWidget *parent);

    bool CheckReplace() override { return true; }

protected:
    welmo::tl::Word word() const { return m_word; }
    /// The line as this form reads it: from its first character on, whatever its word.
    welmo::tl::ParsedLine read(const QString &line) const;
    /// Tells each problem in the message log, with this form as the sender.
    void report(const welmo::tl::Problems &problems);

private:
    welmo::tl::Word m_word;
};
