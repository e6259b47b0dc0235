#pragma once

#include <tessa/basecontentwidget.h>

#include "tl/parsedline.h"

namespace welmo {

/// Base of all insert forms: they write new lines and read none.
class InsertForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    /// The object name is the instruction's followed by "InsertWidget".
    InsertForm(tl::Word word, QWidget *parent);

    void FillWith(const QString &) override { }
    bool CheckInsert() override { return true; }

protected:
    tl::Word word() const { return m_word; }

private:
    tl::Word m_word;
};

/// Base of all property forms: they read a line and write it anew.
class PropertyForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    /// The object name is the instruction's followed by "PropertyWidget".
    PropertyForm(tl::Word word, QWidget *parent);

    bool CheckReplace() override { return true; }

protected:
    tl::Word word() const { return m_word; }
    /// Parses the line as this form's instruction, whatever word it starts with.
    tl::ParsedLine read(const QString &line) const;
    /// Reports each problem in the message log, with this form as the sender.
    void report(const tl::Problems &problems);

private:
    tl::Word m_word;
};

} // namespace welmo
