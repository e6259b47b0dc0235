#include "data/field.h"

#include <QSignalBlocker>
#include <algorithm>

#include "adapter/hostadapter.h"
#include "data/choices.h"
#include "data/inputs.h"
#include "widgets/touchcombo.h"

namespace welmo {

bool isBeingTyped(const QWidget *control)
{
    const auto *line = qobject_cast<const QLineEdit *>(control);
    if (qobject_cast<const QAbstractSpinBox *>(control))
        line = control->findChild<const QLineEdit *>();
    return line && line->hasFocus() && line->isModified();
}

QString labelOf(const QWidget *control)
{
    for (const auto *label : control->window()->findChildren<QLabel *>()) {
        if (label->buddy() == control)
            return label->text();
    }
    return {};
}

bool Field::isBeingTyped() const
{
    const QList<QWidget *> all = editors();
    return std::any_of(all.begin(), all.end(), &welmo::isBeingTyped);
}

QString Field::label() const
{
    const QString text = labelOf(editor());
    return text.isEmpty() ? key() : text;
}

Field &Field::unit(QLabel *label)
{
    label->setText(schema::symbol(m_row.unit));
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

const kelp::ModuleObject *Field::nodeIn(const kelp::ModuleObject *file) const
{
    return file->r(key());
}

QVariantList Field::cutNumber(const QVariant &stored, double shown)
{
    bool isNumber = false;
    const double number = stored.toDouble(&isNumber);
    const double tolerance = 1e-9 * qMax(1.0, qAbs(number));
    const bool same = !isNumber || qAbs(number - shown) <= tolerance;
    return same ? QVariantList() : QVariantList{number, shown};
}

void FileNameField::prepare()
{
    makeTouchable(m_combo);
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
    m_edit->setText(nodeIn(file)->getString(row().defaultValue().toString()));
    return true;
}

void ChoiceField::prepare()
{
    makeTouchable(m_combo);
    choices::fill(m_combo, m_table);
}

void ChoiceField::store(QObject *sender, kelp::ModuleObject *file) const
{
    if (m_combo->currentIndex() >= 0)
        file->set(sender, key(), m_combo->currentData(), true);
}

bool ChoiceField::show(const kelp::ModuleObject *file)
{
    const kelp::ModuleObject *node = nodeIn(file);
    const QVariant fallback = row().defaultValue();
    const QVariant code = m_table.isBoolean() ? QVariant(node->getBool(fallback.toBool()))
                                              : node->getString(fallback.toString());
    m_combo->setCurrentIndex(m_combo->findData(code));
    return m_combo->currentIndex() >= 0 || host::isMissing(node);
}

void SwitchField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_button->isChecked(), true);
}

bool SwitchField::show(const kelp::ModuleObject *file)
{
    m_button->setChecked(nodeIn(file)->getBool(row().defaultValue().toBool()));
    return true;
}

void NameField::prepare()
{
    makeTouchable(m_combo);
}

void NameField::store(QObject *sender, kelp::ModuleObject *file) const
{
    if (m_combo->currentIndex() >= 0)
        file->set(sender, key(), m_combo->currentText(), true);
}

bool NameField::show(const kelp::ModuleObject *file)
{
    const QString name = nodeIn(file)->getString(row().defaultValue().toString());
    const int index = m_combo->findText(name);
    if (index >= 0)
        m_combo->setCurrentIndex(index);
    return index >= 0 || host::isMissing(nodeIn(file));
}

void InputField::prepare()
{
    makeTouchable(m_combo);
}

void InputField::store(QObject *sender, kelp::ModuleObject *file) const
{
    if (m_combo->currentIndex() >= 0)
        file->set(sender, key(), m_combo->currentText(), true);
}

bool InputField::show(const kelp::ModuleObject *file)
{
    const QString name = nodeIn(file)->getString(row().defaultValue().toString());
    // The stored text for "none" may be in the language of another pendant.
    const bool isNone = inputs::noSignalTexts().contains(name);
    m_combo->setCurrentIndex(isNone ? 0 : m_combo->findText(name));
    return m_combo->currentIndex() >= 0;
}

QList<QWidget *> IntegersField::editors() const
{
    return {m_boxes.begin(), m_boxes.end()};
}

QVariantList IntegersField::cut(const kelp::ModuleObject *file) const
{
    const QVariantList stored = nodeIn(file)->getList();
    for (int i = 0; i < qMin(stored.size(), int(m_boxes.size())); ++i) {
        const QVariantList cut = cutNumber(stored.at(i), m_boxes[size_t(i)]->value());
        if (!cut.isEmpty())
            return cut;
    }
    return {};
}

void IntegersField::applyRange()
{
    for (QSpinBox *box : m_boxes)
        box->setRange(int(row().range.minimum), int(row().range.maximum));
}

void IntegersField::store(QObject *sender, kelp::ModuleObject *file) const
{
    QVariantList values;
    for (const QSpinBox *box : m_boxes)
        values.append(box->value());
    file->setList(sender, key(), values, true);
}

bool IntegersField::show(const kelp::ModuleObject *file)
{
    const QVariantList values = nodeIn(file)->getList();
    const QVariantList defaults = row().defaultValue().toList();
    for (int i = 0; i < int(m_boxes.size()); ++i) {
        QSpinBox *box = m_boxes[size_t(i)];
        const QSignalBlocker blocker(box);
        box->setValue(values.value(i, defaults.at(i)).toInt());
    }
    return true;
}

QVariantList IntegerField::cut(const kelp::ModuleObject *file) const
{
    return cutNumber(host::toVariant(nodeIn(file)), m_box->value());
}

void IntegerField::applyRange()
{
    m_box->setRange(int(row().range.minimum), int(row().range.maximum));
    m_box->setAccelerated(true);
}

void IntegerField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_box->value(), true);
}

bool IntegerField::show(const kelp::ModuleObject *file)
{
    m_box->setValue(nodeIn(file)->getInt(row().defaultValue().toInt()));
    return true;
}

QVariantList RealField::cut(const kelp::ModuleObject *file) const
{
    return cutNumber(host::toVariant(nodeIn(file)), m_box->value());
}

void RealField::applyRange()
{
    m_box->setRange(row().range.minimum, row().range.maximum);
    m_box->setAccelerated(true);
}

void RealField::store(QObject *sender, kelp::ModuleObject *file) const
{
    file->set(sender, key(), m_box->value(), true);
    if (const char *twin = row().twinKey())
        file->set(sender, QString::fromLatin1(twin), m_box->value(), true);
}

bool RealField::show(const kelp::ModuleObject *file)
{
    const kelp::ModuleObject *node = nodeIn(file);
    const QVariant fallback = row().defaultValue();
    m_box->setValue(m_readAsInteger ? node->getInt(fallback.toInt())
                                    : node->getDouble(fallback.toDouble()));
    return true;
}

} // namespace welmo
