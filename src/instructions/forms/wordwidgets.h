#pragma once

#include "instructions/forms/instructionform.h"

namespace welmo {

/// Insert form of an instruction that is a word alone.
class WordInsertWidget : public InsertForm
{
    Q_OBJECT
public:
    using InsertForm::InsertForm;
    QString ToString() override { return tl::row(word()).text(); }
};

/// Property form of an instruction that is a word alone.
class WordPropertyWidget : public PropertyForm
{
    Q_OBJECT
public:
    using PropertyForm::PropertyForm;
    void FillWith(const QString &line) override;
    QString ToString() override { return tl::row(word()).text(); }
};

} // namespace welmo

class WeaveOffInsertWidget : public welmo::WordInsertWidget
{
    Q_OBJECT
public:
    explicit WeaveOffInsertWidget(QWidget *parent)
        : WordInsertWidget(welmo::tl::Word::WeaveOff, parent)
    { }
};

class WeaveOffPropertyWidget : public welmo::WordPropertyWidget
{
    Q_OBJECT
public:
    explicit WeaveOffPropertyWidget(QWidget *parent)
        : WordPropertyWidget(welmo::tl::Word::WeaveOff, parent)
    { }
};

class SegOffInsertWidget : public welmo::WordInsertWidget
{
    Q_OBJECT
public:
    explicit SegOffInsertWidget(QWidget *parent)
        : WordInsertWidget(welmo::tl::Word::SegOff, parent)
    { }
};

class SegOffPropertyWidget : public welmo::WordPropertyWidget
{
    Q_OBJECT
public:
    explicit SegOffPropertyWidget(QWidget *parent)
        : WordPropertyWidget(welmo::tl::Word::SegOff, parent)
    { }
};
