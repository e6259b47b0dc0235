#include "data/field.h"

namespace welmo {

void Field::writeDefault(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, m_key, m_default);
}

Field &Field::unit(QLabel *label, const QString &text)
{
    label->setText(text);
    return *this;
}

void FileNameField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_combo->currentText());
}

void TextField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_edit->text());
}

bool TextField::show(const kelp::ModuleObject *file)
{
    m_edit->setText(file->r(key())->getString());
    return true;
}

void ChoiceField::store(QObject *sender, kelp::ModuleObject *file) const
{
    if (m_combo->currentIndex() >= 0)
        file->set(sender, key(), m_combo->currentData());
}

bool ChoiceField::show(const kelp::ModuleObject *file)
{
    const kelp::ModuleObject *node = file->r(key());
    const QVariant code = m_table.isBoolean() ? QVariant(node->getBool()) : node->getString();
    m_combo->setCurrentIndex(m_combo->findData(code));
    return m_combo->currentIndex() >= 0;
}

void IntegerField::prepare()
{
    m_box->setRange(int(m_range.minimum), int(m_range.maximum));
}

void IntegerField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_box->value());
}

bool IntegerField::show(const kelp::ModuleObject *file)
{
    m_box->setValue(file->r(key())->getInt());
    return true;
}

void RealField::writeDefault(QObject *sender, kelp::ModuleObject *file) const
{
    Field::writeDefault(sender, file);
    if (!m_twinKey.isEmpty())
        file->set(sender, m_twinKey, defaultValue());
}

void RealField::prepare()
{
    m_box->setRange(m_range.minimum, m_range.maximum);
}

void RealField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_box->value());
    if (!m_twinKey.isEmpty())
        file->set(sender, m_twinKey, m_box->value());
}

bool RealField::show(const kelp::ModuleObject *file)
{
    const kelp::ModuleObject *node = file->r(key());
    m_box->setValue(m_readAsInteger ? node->getInt() : node->getDouble());
    return true;
}

RealField &RealField::readAsInteger()
{
    m_readAsInteger = true;
    return *this;
}

RealField &RealField::alsoStoredAs(const QString &key)
{
    m_twinKey = key;
    return *this;
}

} // namespace welmo
