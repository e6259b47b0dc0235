#pragma once

#include <QAbstractButton>

#include "data/field.h"

namespace welmo {

/// A bool edited with an on/off button, false by default.
class SwitchField : public Field
{
public:
    SwitchField(const QString &key, QAbstractButton *button)
        : Field(key, false)
        , m_button(button)
    { }
    QWidget *editor() const override { return m_button; }
    void store(QObject *sender, kelp::ModuleObject *file) const override
    {
        file->set(sender, key(), m_button->isChecked(), true);
    }
    bool show(const kelp::ModuleObject *file) override
    {
        m_button->setChecked(file->r(key())->getBool(false));
        return true;
    }

private:
    QAbstractButton *m_button;
};

} // namespace welmo
