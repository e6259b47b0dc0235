#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <array>
#include <functional>

#include <kelp/moduleobject.h>

#include "schema/row.h"

namespace welmo {

using schema::Range;

/// Whether the user is typing into @p control: then its text must not be changed.
bool isBeingTyped(const QWidget *control);
/// The text of the label that belongs to the control; empty if there is none.
QString labelOf(const QWidget *control);

/// One row of the schema with the control that edits it on one form. A key that a file lacks reads
/// as the row's default.
class Field
{
public:
    explicit Field(const schema::Row &row)
        : m_row(row)
    { }
    virtual ~Field() = default;

    const schema::Row &row() const { return m_row; }
    QString key() const { return QString::fromLatin1(m_row.key); }
    virtual QWidget *editor() const = 0;
    /// All of the row's controls, where it has several.
    virtual QList<QWidget *> editors() const { return {editor()}; }
    bool isBeingTyped() const;
    /// What the user reads beside the control; the key if there is no label.
    QString label() const;

    /// Gives the control its items.
    virtual void prepare() { }
    /// Gives the control the row's range.
    virtual void applyRange() { }
    /// Control to file.
    virtual void store(QObject *sender, kelp::ModuleObject *file) const = 0;
    /// File to control. False when the control cannot show the stored value.
    virtual bool show(const kelp::ModuleObject *file) = 0;
    /// For a number: the stored and the shown value if they differ, else an empty list.
    virtual QVariantList cut(const kelp::ModuleObject *) const { return {}; }

    /// Shows the row's unit in this label.
    Field &unit(QLabel *label);
    /// Runs @p action right after the row is shown, for a value that decides the range of later
    /// rows.
    Field &whenShown(std::function<void()> action);
    void shown() const;

protected:
    const kelp::ModuleObject *nodeIn(const kelp::ModuleObject *file) const;
    /// cut() for one number.
    static QVariantList cutNumber(const QVariant &stored, double shown);

private:
    const schema::Row &m_row;
    std::function<void()> m_whenShown;
};

class FileNameField : public Field
{
public:
    FileNameField(const schema::FileNameRow &row, QComboBox *combo)
        : Field(row)
        , m_combo(combo)
    { }
    QWidget *editor() const override { return m_combo; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *) override { return true; }

private:
    QComboBox *m_combo;
};

class TextField : public Field
{
public:
    TextField(const schema::TextRow &row, QLineEdit *edit)
        : Field(row)
        , m_edit(edit)
    { }
    QWidget *editor() const override { return m_edit; }
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QLineEdit *m_edit;
};

/// A stored code that the combo does not offer shows an empty choice, and stays stored until the
/// user chooses another.
class ChoiceField : public Field
{
public:
    ChoiceField(const schema::ChoiceRow &row, QComboBox *combo)
        : Field(row)
        , m_combo(combo)
        , m_table(row.table)
    { }
    QWidget *editor() const override { return m_combo; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QComboBox *m_combo;
    const schema::ChoiceTable &m_table;
};

class SwitchField : public Field
{
public:
    SwitchField(const schema::SwitchRow &row, QAbstractButton *button)
        : Field(row)
        , m_button(button)
    { }
    QWidget *editor() const override { return m_button; }
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QAbstractButton *m_button;
};

/// A stored name that does not exist leaves the combo's selection as it is; the next save then
/// stores that selection.
class NameField : public Field
{
public:
    NameField(const schema::NameRow &row, QComboBox *combo)
        : Field(row)
        , m_combo(combo)
    { }
    QWidget *editor() const override { return m_combo; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QComboBox *m_combo;
};

/// An input. One that no longer exists shows an empty choice, and stays stored until the user
/// chooses another.
class InputField : public Field
{
public:
    InputField(const schema::InputRow &row, QComboBox *combo)
        : Field(row)
        , m_combo(combo)
    { }
    QWidget *editor() const override { return m_combo; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QComboBox *m_combo;
};

class IntegersField : public Field
{
public:
    using Boxes = std::array<QSpinBox *, schema::IntegersRow::count>;
    IntegersField(const schema::IntegersRow &row, const Boxes &boxes)
        : Field(row)
        , m_boxes(boxes)
    { }
    QWidget *editor() const override { return m_boxes.front(); }
    QList<QWidget *> editors() const override;
    const Boxes &boxes() const { return m_boxes; }
    void applyRange() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;
    QVariantList cut(const kelp::ModuleObject *file) const override;

private:
    Boxes m_boxes;
};

class IntegerField : public Field
{
public:
    IntegerField(const schema::IntegerRow &row, QSpinBox *box)
        : Field(row)
        , m_box(box)
    { }
    QWidget *editor() const override { return m_box; }
    void applyRange() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;
    QVariantList cut(const kelp::ModuleObject *file) const override;

private:
    QSpinBox *m_box;
};

class RealField : public Field
{
public:
    RealField(const schema::RealRow &row, QDoubleSpinBox *box)
        : Field(row)
        , m_box(box)
        , m_readAsInteger(row.isReadAsInteger)
    { }
    QWidget *editor() const override { return m_box; }
    void applyRange() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;
    QVariantList cut(const kelp::ModuleObject *file) const override;

private:
    QDoubleSpinBox *m_box;
    bool m_readAsInteger;
};

} // namespace welmo
