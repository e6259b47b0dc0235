#include "data/touchcombo.h"

#include <QComboBox>
#include <QStyledItemDelegate>

namespace welmo {

void makeTouchable(QComboBox *combo)
{
    // Qt's own delegate for combo boxes is a subclass; only that one is replaced.
    if (combo->itemDelegate()->metaObject() != &QStyledItemDelegate::staticMetaObject)
        combo->setItemDelegate(new QStyledItemDelegate(combo));
    // As wide as its place, not as its longest item: a form must fit the screen.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(6);
}

} // namespace welmo
