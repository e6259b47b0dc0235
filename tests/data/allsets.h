#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "data/fieldtable.h"

/// One parameter set as a form of the package edits it.
struct SetUnderTest
{
    QString name;
    welmo::FieldTable *fields;
    std::shared_ptr<QObject> form;
};

/// Every set of every form. A row that is added to a form's table is in here by itself.
std::vector<SetUnderTest> allSets(QWidget *window);

/// What a control holds, as it is to be stored; and the way in which an operator changes it.
QVariant shownBy(const welmo::Field &field);
void edit(const welmo::Field &field, const QVariant &value);
/// Values that the control offers: both ends of a range, every item, on and off. Empty for a kind
/// of field that this file does not know.
QVariantList offeredBy(const welmo::Field &field);
