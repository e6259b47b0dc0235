#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "data/field.h"

namespace welmo {

/// The fields of one parameter set, in the set's order, bound to the controls of one form. Four
/// loops over the rows do all the moving between file and form.
class FieldTable
{
public:
    /// @p owner is named as the sender of the values it writes and of what it reports. @p set names
    /// what it shows in a report where no file has a name.
    explicit FieldTable(QObject *owner, const QString &set = {})
        : m_owner(owner)
        , m_set(set)
    { }

    Field &fileName(const QString &key, QComboBox *combo) { return add<FileNameField>(key, combo); }
    Field &text(const QString &key, QLineEdit *edit) { return add<TextField>(key, edit); }
    Field &choice(const QString &key, QComboBox *combo, const ChoiceTable &table,
                  const QVariant &defaultCode)
    {
        return add<ChoiceField>(key, combo, table, defaultCode);
    }
    Field &integer(const QString &key, QSpinBox *box, Range range, int defaultValue)
    {
        return add<IntegerField>(key, box, range, defaultValue);
    }
    /// The default's own type is what the default file holds, often an int.
    RealField &real(const QString &key, QDoubleSpinBox *box, Range range,
                    const QVariant &defaultValue)
    {
        return add<RealField>(key, box, range, defaultValue);
    }
    NameField &name(const QString &key, QComboBox *combo, const QString &defaultName)
    {
        return add<NameField>(key, combo, defaultName);
    }
    Field &integers(const QString &key, const std::vector<QSpinBox *> &boxes, Range range)
    {
        return add<IntegerListField>(key, boxes, range);
    }
    /// A value that only the default file sets: no control shows it and no save touches it.
    Field &defaultOnly(const QString &key, const QVariant &defaultValue)
    {
        return add<Field>(key, defaultValue);
    }
    /// A row of any other kind.
    template<typename Kind, typename... Arguments>
    Kind &add(Arguments &&...arguments)
    {
        m_rows.push_back(std::make_unique<Kind>(std::forward<Arguments>(arguments)...));
        return static_cast<Kind &>(*m_rows.back());
    }

    void writeDefaults(kelp::ModuleObject *file) const;
    void prepare();
    void store(kelp::ModuleObject *file) const;
    /// Fills the controls with their signals blocked; what depends on the values is the caller's to
    /// bring up to date afterwards. A value that a control cannot show is reported.
    void show(const kelp::ModuleObject *file);

    const std::vector<std::unique_ptr<Field>> &rows() const { return m_rows; }

private:
    QObject *m_owner;
    QString m_set;
    std::vector<std::unique_ptr<Field>> m_rows;
};

} // namespace welmo
