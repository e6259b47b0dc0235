#pragma once

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QString>
#include <QVariant>
#include <functional>
#include <utility>
#include <vector>

#include <kelp/moduleobject.h>

#include "data/choices.h"

namespace welmo {

struct Range
{
    double minimum;
    double maximum;
};

/// One value of a parameter file and the control that edits it: what is known of a field is said
/// once, in its row of a FieldTable.
class Field
{
public:
    Field(const QString &key, const QVariant &defaultValue)
        : m_key(key)
        , m_default(defaultValue)
    { }
    virtual ~Field() = default;

    /// Key relative to the file's node; a dotted key is a child of a child.
    const QString &key() const { return m_key; }
    const QVariant &defaultValue() const { return m_default; }
    /// The control that edits the value; null for a value that no control shows.
    virtual QWidget *editor() const { return nullptr; }

    /// Writes the factory default into the file's node.
    virtual void writeDefault(QObject *sender, kelp::ModuleObject *file) const;
    /// Gives the control its range, its items and its unit.
    virtual void prepare() { }
    /// Control to file.
    virtual void store(QObject *, kelp::ModuleObject *) const { }
    /// File to control. False when the control cannot show the stored value.
    virtual bool show(const kelp::ModuleObject *) { return true; }

    /// The label behind the control and the unit that it shows.
    Field &unit(QLabel *label, const QString &text);
    /// Runs right after the row was shown: for a value that decides the range in which the rows
    /// after it are shown.
    Field &whenShown(std::function<void()> action);
    void shown() const;

private:
    QString m_key;
    QVariant m_default;
    std::function<void()> m_whenShown;
};

/// The file's own name: shown and chosen by the file combo box, so it is only ever stored.
class FileNameField : public Field
{
public:
    FileNameField(const QString &key, QComboBox *combo)
        : Field(key, "default")
        , m_combo(combo)
    { }
    QWidget *editor() const override { return m_combo; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;

private:
    QComboBox *m_combo;
};

class TextField : public Field
{
public:
    TextField(const QString &key, QLineEdit *edit)
        : Field(key, QString())
        , m_edit(edit)
    { }
    QWidget *editor() const override { return m_edit; }
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QLineEdit *m_edit;
};

/// A keyword or a bool, chosen from a table. A stored code that the combo does not offer shows an
/// empty choice; as long as the user chooses nothing, storing leaves that code as it is.
class ChoiceField : public Field
{
public:
    ChoiceField(const QString &key, QComboBox *combo, const ChoiceTable &table,
                const QVariant &defaultCode)
        : Field(key, defaultCode)
        , m_combo(combo)
        , m_table(table)
    { }
    QWidget *editor() const override { return m_combo; }
    const ChoiceTable &table() const { return m_table; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QComboBox *m_combo;
    const ChoiceTable &m_table;
};

/// A name chosen among those that exist at the moment (speeds, inputs), stored as its text. A
/// stored name that is not among them stays in the file until the user chooses another.
class NameField : public Field
{
public:
    NameField(const QString &key, QComboBox *combo, const QString &defaultName)
        : Field(key, defaultName)
        , m_combo(combo)
    {
        // Who picks the item on which the combo box stands, means it.
        QObject::connect(combo, qOverload<int>(&QComboBox::activated), &m_guard,
                         [this] { m_indexOfUnknown = noUnknown; });
    }
    QWidget *editor() const override { return m_combo; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

    /// An unknown name leaves the combo on its present item instead of showing an empty choice.
    NameField &keepPresentItem();
    /// Stored, these texts mean the first item, whatever its own text is.
    NameField &meaningTheFirst(const QStringList &texts);

private:
    QComboBox *m_combo;
    QStringList m_meaningTheFirst;
    bool m_keepPresentItem = false;
    QObject m_guard; ///< the connection goes with the field
    int m_indexOfUnknown = noUnknown; ///< the combo's index while it cannot show the stored name
    static constexpr int noUnknown = -2;
};

/// Several integers that the file holds as one list.
class IntegerListField : public Field
{
public:
    IntegerListField(const QString &key, std::vector<QSpinBox *> boxes, Range range)
        : Field(key, QVariant(QVariantList()))
        , m_boxes(std::move(boxes))
        , m_range(range)
    { }
    QWidget *editor() const override { return m_boxes.front(); }
    const std::vector<QSpinBox *> &boxes() const { return m_boxes; }
    Range range() const { return m_range; }
    void writeDefault(QObject *sender, kelp::ModuleObject *file) const override;
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    std::vector<QSpinBox *> m_boxes;
    Range m_range;
};

class IntegerField : public Field
{
public:
    IntegerField(const QString &key, QSpinBox *box, Range range, const QVariant &defaultValue)
        : Field(key, defaultValue)
        , m_box(box)
        , m_range(range)
    { }
    QWidget *editor() const override { return m_box; }
    Range range() const { return m_range; }
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

private:
    QSpinBox *m_box;
    Range m_range;
};

class RealField : public Field
{
public:
    RealField(const QString &key, QDoubleSpinBox *box, Range range, const QVariant &defaultValue)
        : Field(key, defaultValue)
        , m_box(box)
        , m_range(range)
    { }
    QWidget *editor() const override { return m_box; }
    Range range() const { return m_range; }
    bool isReadAsInteger() const { return m_readAsInteger; }
    const QString &twinKey() const { return m_twinKey; }
    void writeDefault(QObject *sender, kelp::ModuleObject *file) const override;
    void prepare() override;
    void store(QObject *sender, kelp::ModuleObject *file) const override;
    bool show(const kelp::ModuleObject *file) override;

    /// The stored fraction is dropped when the value is shown.
    RealField &readAsInteger();
    /// The same number is written to a second key; the first is the one that is shown.
    RealField &alsoStoredAs(const QString &key);

private:
    QDoubleSpinBox *m_box;
    Range m_range;
    bool m_readAsInteger = false;
    QString m_twinKey;
};

} // namespace welmo
