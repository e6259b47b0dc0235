#pragma once

#include <QHash>
#include <memory>
#include <utility>
#include <vector>

#include "data/field.h"
#include "schema/fileset.h"

namespace welmo {

/// The rows of one set, bound to the controls of one form. A binding takes only a control that fits
/// its row, by its name in the generated form, so that a wrong one does not compile. All values
/// move between file and form in four loops over the rows.
class FieldTable
{
public:
    /// @p owner is the sender of the values it writes and of what it reports.
    FieldTable(QObject *owner, const schema::Set &set)
        : m_owner(owner)
        , m_set(set)
    { }

    Field &bind(const schema::FileNameRow &row, QComboBox *combo)
    {
        return add<FileNameField>(row, combo);
    }
    Field &bind(const schema::TextRow &row, QLineEdit *edit) { return add<TextField>(row, edit); }
    Field &bind(const schema::ChoiceRow &row, QComboBox *combo)
    {
        return add<ChoiceField>(row, combo);
    }
    Field &bind(const schema::SwitchRow &row, QAbstractButton *button)
    {
        return add<SwitchField>(row, button);
    }
    Field &bind(const schema::IntegerRow &row, QSpinBox *box)
    {
        return add<IntegerField>(row, box);
    }
    Field &bind(const schema::IntegersRow &row, const IntegersField::Boxes &boxes)
    {
        return add<IntegersField>(row, boxes);
    }
    Field &bind(const schema::RealRow &row, QDoubleSpinBox *box)
    {
        return add<RealField>(row, box);
    }
    Field &bind(const schema::NameRow &row, QComboBox *combo) { return add<NameField>(row, combo); }
    Field &bind(const schema::InputRow &row, QComboBox *combo)
    {
        return add<InputField>(row, combo);
    }

    const schema::Set &set() const { return m_set; }
    const std::vector<std::unique_ptr<Field>> &fields() const { return m_fields; }

    /// Writes every row's default, also of the rows that no control shows.
    void writeDefaults(kelp::ModuleObject *file) const;
    void prepare();
    /// Sets the number boxes to the rows' ranges again.
    void applyRanges();
    void store(kelp::ModuleObject *file) const;
    /// Shows the file with the controls' signals blocked; the caller then updates what depends on
    /// the values. A value that a control cannot show is reported.
    void show(const kelp::ModuleObject *file);
    /// As show(), for a change made elsewhere: a control that the user is typing into keeps its
    /// text.
    void showNews(const kelp::ModuleObject *file);
    /// Warns of each number that its control shows differently, once until the difference changes.
    void reportCuts(const kelp::ModuleObject *file);

private:
    void show(Field &field, const kelp::ModuleObject *file);
    template<typename Kind, typename Row, typename Control>
    Field &add(const Row &row, Control control)
    {
        m_fields.push_back(std::make_unique<Kind>(row, control));
        return *m_fields.back();
    }
    void reportUnknown(const kelp::ModuleObject *file, const Field &field);
    QString nameOf(const kelp::ModuleObject *file) const;
    /// Reports @p text once, until the field has shown something else.
    void tellOnce(QHash<const Field *, QString> &told, const Field &field, const QString &text);

    QObject *m_owner;
    const schema::Set &m_set;
    std::vector<std::unique_ptr<Field>> m_fields;
    QHash<const Field *, QString> m_unknown; ///< what was reported
    QHash<const Field *, QString> m_cuts;
};

} // namespace welmo
