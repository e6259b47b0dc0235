#include "data/field.h"

#include <QSignalBlocker>

#include "widgets/touchcombo.h"

namespace welmo {

void Field::writeDefault(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, m_key, m_default, true);
}

Field &Field::unit(QLabel *label, const QString &text)
{
    label->setText(text);
    return *this;
}

Field &Field::whenShown(std::function<void()> action)
{
    m_whenShown = std::move(action);
    return *this;
}

void Field::shown() const
{
    if (m_whenShown)
        m_whenShown();
}

void FileNameField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_combo->currentText(), true);
}

void TextField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_edit->text(), true);
}

bool TextField::show(const kelp::ModuleObject *file)
{
    m_edit->setText(file->r(key())->getString(QString()));
    return true;
}

void ChoiceField::store(QObject *sender, kelp::ModuleObject *file) const
{
    if (m_combo->currentIndex() >= 0)
        file->set(sender, key(), m_combo->currentData(), true);
}

void ChoiceField::prepare()
{
    makeTouchable(m_combo);
    m_table.fill(m_combo);
}

bool ChoiceField::show(const kelp::ModuleObject *file)
{
    const kelp::ModuleObject *node = file->r(key());
    const QVariant code =
        m_table.isBoolean() ? QVariant(node->getBool(false)) : node->getString(QString());
    m_combo->setCurrentIndex(m_combo->findData(code));
    return m_combo->currentIndex() >= 0;
}

void FileNameField::prepare()
{
    makeTouchable(m_combo);
}

void NameField::prepare()
{
    makeTouchable(m_combo);
}

void NameField::store(QObject *sender, kelp::ModuleObject *file) const
{
    if (m_combo->currentIndex() >= 0 && m_combo->currentIndex() != m_indexOfUnknown)
        file->set(sender, key(), m_combo->currentText(), true);
}

bool NameField::show(const kelp::ModuleObject *file)
{
    const QString name = file->r(key())->getString(QString());
    const int index = m_meaningTheFirst.contains(name) ? 0 : m_combo->findText(name);
    const bool known = index >= 0;
    if (known || !m_keepPresentItem)
        m_combo->setCurrentIndex(index);
    m_indexOfUnknown = known ? noUnknown : m_combo->currentIndex();
    return known;
}

NameField &NameField::meaningTheFirst(const QStringList &texts)
{
    m_meaningTheFirst = texts;
    return *this;
}

NameField &NameField::keepPresentItem()
{
    m_keepPresentItem = true;
    return *this;
}

void IntegerListField::writeDefault(QObject *sender, kelp::ModuleObject *file) const
{
    QVariantList zeros;
    for (size_t i = 0; i < m_boxes.size(); ++i)
        zeros.append(0);
    file->setList(sender, key(), zeros, true);
}

void IntegerListField::prepare()
{
    for (QSpinBox *box : m_boxes)
        box->setRange(int(m_range.minimum), int(m_range.maximum));
}

void IntegerListField::store(QObject *sender, kelp::ModuleObject *file) const
{
    QVariantList values;
    for (const QSpinBox *box : m_boxes)
        values.append(box->value());
    file->setList(sender, key(), values, true);
}

bool IntegerListField::show(const kelp::ModuleObject *file)
{
    const QVariantList values = file->r(key())->getList();
    for (size_t i = 0; i < m_boxes.size(); ++i) {
        const QSignalBlocker blocker(m_boxes[i]);
        m_boxes[i]->setValue(values.value(int(i)).toInt());
    }
    return true;
}

void IntegerField::prepare()
{
    m_box->setRange(int(m_range.minimum), int(m_range.maximum));
    m_box->setAccelerated(true);
}

void IntegerField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_box->value(), true);
}

bool IntegerField::show(const kelp::ModuleObject *file)
{
    m_box->setValue(file->r(key())->getInt(0));
    return true;
}

void RealField::writeDefault(QObject *sender, kelp::ModuleObject *file) const
{
    Field::writeDefault(sender, file);
    if (!m_twinKey.isEmpty())
        file->set(sender, m_twinKey, defaultValue(), true);
}

void RealField::prepare()
{
    m_box->setRange(m_range.minimum, m_range.maximum);
    m_box->setAccelerated(true);
}

void RealField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_box->value(), true);
    if (!m_twinKey.isEmpty())
        file->set(sender, m_twinKey, m_box->value(), true);
}

bool RealField::show(const kelp::ModuleObject *file)
{
    const kelp::ModuleObject *node = file->r(key());
    m_box->setValue(m_readAsInteger ? node->getInt(0) : node->getDouble(0.0));
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
