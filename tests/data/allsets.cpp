#include "allsets.h"

#include <QAbstractButton>

#include "data/parameterfile.h"
#include "data/switchfield.h"
#include "instructions/weavewidget.h"
#include "settings/arcoffgroup.h"
#include "settings/arcongroup.h"
#include "settings/segparameterwidget.h"
#include "settings/weldgroup.h"
#include "settings/weldingoptionspage.h"

using namespace welmo;

std::vector<SetUnderTest> allSets(QWidget *window)
{
    std::vector<SetUnderTest> sets;
    const auto add = [&sets](const QString &name, FieldTable &fields, kelp::ModuleObject *defaults,
                             const std::shared_ptr<QObject> &form) {
        sets.push_back({name, &fields, defaults, form});
    };
    const auto addFile = [&add](const QString &name, FileForm &file, auto form) {
        add(name, file.fields(), parameterfile::defaultNode(file.set()), form);
    };
    const auto group = [&](const QString &name, std::shared_ptr<ProcessGroup> form) {
        form->initUI(form.get());
        form->file().start();
        addFile(name, form->file(), form);
    };
    group("arcon", std::make_shared<ArconGroup>(window));
    group("weld", std::make_shared<WeldGroup>(window));
    group("arcoff", std::make_shared<ArcoffGroup>(window));

    const auto page = std::make_shared<WeaveEditor>(window);
    page->initUI(page.get(), {});
    addFile("weave page", page->file(), page);
    const auto instruction = std::make_shared<WeaveWidget>(window);
    addFile("weave instruction", instruction->file(), instruction);
    const auto seg = std::make_shared<SegParameterWidget>(window);
    seg->init();
    addFile("seg", seg->file(), seg);

    const auto options = std::make_shared<WeldingOptionsPage>(window, window);
    for (const auto &[name, set] : {std::pair{"running", &options->running()},
                                    std::pair{"anticollision", &options->anticollision()},
                                    std::pair{"wire_clamping_torch", &options->clamping()}})
        add(name, set->fields(),
            m(QStringLiteral("welmo.welding_options.%1_param.default").arg(name)), options);
    return sets;
}

QVariant shownBy(const Field &field)
{
    QWidget *editor = field.editor();
    if (const auto *list = dynamic_cast<const IntegerListField *>(&field)) {
        QVariantList values;
        for (const QSpinBox *box : list->boxes())
            values.append(box->value());
        return values;
    }
    if (const auto *combo = qobject_cast<QComboBox *>(editor))
        return combo->currentData().isValid() ? combo->currentData() : combo->currentText();
    if (const auto *box = qobject_cast<QSpinBox *>(editor))
        return box->value();
    if (const auto *box = qobject_cast<QDoubleSpinBox *>(editor))
        return box->value();
    if (const auto *button = qobject_cast<QAbstractButton *>(editor))
        return button->isChecked();
    return qobject_cast<QLineEdit *>(editor)->text();
}

void edit(const Field &field, const QVariant &value)
{
    QWidget *editor = field.editor();
    const QSignalBlocker blocker(editor); // a set's rules are not what is tested here
    if (const auto *list = dynamic_cast<const IntegerListField *>(&field)) {
        for (size_t i = 0; i < list->boxes().size(); ++i)
            list->boxes()[i]->setValue(value.toList().value(int(i)).toInt());
    } else if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        const int index = combo->findData(value);
        combo->setCurrentIndex(index >= 0 ? index : combo->findText(value.toString()));
    } else if (auto *box = qobject_cast<QSpinBox *>(editor)) {
        box->setValue(value.toInt());
    } else if (auto *real = qobject_cast<QDoubleSpinBox *>(editor)) {
        real->setValue(value.toDouble());
    } else if (auto *button = qobject_cast<QAbstractButton *>(editor)) {
        button->setChecked(value.toBool());
    } else {
        qobject_cast<QLineEdit *>(editor)->setText(value.toString());
    }
}

QVariantList offeredBy(const Field &field)
{
    const auto is = [&field](auto *kind) {
        return dynamic_cast<std::remove_pointer_t<decltype(kind)> *>(&field) != nullptr;
    };
    if (const auto *list = dynamic_cast<const IntegerListField *>(&field))
        return {QVariantList{1, 2, 3}, QVariantList{0, int(list->range().maximum), 0}};
    if (const auto *number = dynamic_cast<const IntegerField *>(&field))
        return {int(number->range().minimum), int(number->range().maximum)};
    if (const auto *number = dynamic_cast<const RealField *>(&field))
        return {number->range().minimum, number->range().maximum};
    if (is(static_cast<const TextField *>(nullptr)))
        return {QStringLiteral("seam 1"), QStringLiteral("\u6469 \"'.,{}")};
    if (is(static_cast<const SwitchField *>(nullptr)))
        return {true, false};
    QVariantList items;
    if (const auto *combo = qobject_cast<const QComboBox *>(field.editor())) {
        for (int i = 0; i < combo->count(); ++i)
            items.append(combo->itemData(i).isValid() ? combo->itemData(i) : combo->itemText(i));
    }
    return items;
}
