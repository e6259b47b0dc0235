#include "allsets.h"

#include <QAbstractButton>
#include <QMetaProperty>

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
    const auto group = [&sets](const char *name, const std::shared_ptr<ProcessGroup> &form) {
        form->initUI(form.get());
        form->file().start();
        sets.push_back({name, &form->file().fields(), form});
    };
    group("arcon", std::make_shared<ArconGroup>(window));
    group("weld", std::make_shared<WeldGroup>(window));
    group("arcoff", std::make_shared<ArcoffGroup>(window));
    const auto page = std::make_shared<WeaveEditor>(window);
    page->initUI(page.get(), {});
    sets.push_back({"weave page", &page->file().fields(), page});
    const auto instruction = std::make_shared<WeaveWidget>(window);
    sets.push_back({"weave instruction", &instruction->file().fields(), instruction});
    const auto seg = std::make_shared<SegParameterWidget>(window);
    seg->init();
    sets.push_back({"seg", &seg->file().fields(), seg});
    const auto options = std::make_shared<WeldingOptionsPage>(window, window);
    sets.push_back({"running", &options->running().fields(), options});
    sets.push_back({"anticollision", &options->anticollision().fields(), options});
    sets.push_back({"clamping", &options->clamping().fields(), options});
    return sets;
}

QVariant shownBy(const Field &field)
{
    if (const auto *list = dynamic_cast<const IntegerListField *>(&field)) {
        QVariantList values;
        for (const QSpinBox *box : list->boxes())
            values.append(box->value());
        return values;
    }
    if (const auto *combo = qobject_cast<QComboBox *>(field.editor()))
        return combo->currentData().isValid() ? combo->currentData() : combo->currentText();
    const QMetaObject *type = field.editor()->metaObject();
    return type->userProperty().read(field.editor());
}

void edit(const Field &field, const QVariant &value)
{
    const QSignalBlocker blocker(field.editor()); // a form's rules are not what is tested here
    if (const auto *list = dynamic_cast<const IntegerListField *>(&field)) {
        for (size_t i = 0; i < list->boxes().size(); ++i)
            list->boxes()[i]->setValue(value.toList().value(int(i)).toInt());
    } else if (auto *combo = qobject_cast<QComboBox *>(field.editor())) {
        const int index = combo->findData(value);
        combo->setCurrentIndex(index >= 0 ? index : combo->findText(value.toString()));
    } else {
        field.editor()->metaObject()->userProperty().write(field.editor(), value);
    }
}

QVariantList offeredBy(const Field &field)
{
    if (const auto *list = dynamic_cast<const IntegerListField *>(&field))
        return {QVariantList{1, 2, 3}, QVariantList{0, int(list->range().maximum), 0}};
    if (const auto *number = dynamic_cast<const IntegerField *>(&field))
        return {int(number->range().minimum), int(number->range().maximum)};
    if (const auto *number = dynamic_cast<const RealField *>(&field))
        return {number->range().minimum, number->range().maximum};
    if (qobject_cast<QLineEdit *>(field.editor()))
        return {QStringLiteral("seam 1"), QStringLiteral("\u6469 \"'.,{}")};
    if (qobject_cast<QAbstractButton *>(field.editor()))
        return {true, false};
    QVariantList items;
    if (const auto *combo = qobject_cast<QComboBox *>(field.editor())) {
        for (int i = 0; i < combo->count(); ++i)
            items.append(combo->itemData(i).isValid() ? combo->itemData(i) : combo->itemText(i));
    }
    return items;
}
