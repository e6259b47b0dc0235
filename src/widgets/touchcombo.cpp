#include "widgets/touchcombo.h"

#include <QComboBox>
#include <QEvent>
#include <QStyledItemDelegate>

namespace welmo {

namespace {

/// Waits for the press that opens the combo's list for the first time. The list is made only then,
/// since making all lists would take a good part of the time that opening a form takes.
class TouchRows : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // The combo would make its list to pass on the font that the style rules give it. A list
        // that is made later has that font all the same.
        if (event->type() == QEvent::FontChange)
            return !static_cast<QWidget *>(watched)->testAttribute(Qt::WA_WState_Polished);
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
            watched->removeEventFilter(this);
            auto *combo = static_cast<QComboBox *>(watched);
            combo->setItemDelegate(new QStyledItemDelegate(combo));
        }
        return false;
    }
};

} // namespace

void makeTouchable(QComboBox *combo)
{
    const QString name = QStringLiteral("touchRows");
    if (!combo->findChild<QObject *>(name, Qt::FindDirectChildrenOnly)) {
        auto *rows = new TouchRows(combo);
        rows->setObjectName(name);
        combo->installEventFilter(rows);
    }
    // The combo may become narrower than its longest item, so that a form fits the screen. The size
    // policy for this would make the list at once.
    combo->setMinimumContentsLength(6);
}

bool offers(const QComboBox *combo, const QStringList &names)
{
    QStringList present;
    for (int i = 0; i < combo->count(); ++i)
        present.append(combo->itemText(i));
    return present == names;
}

void chooseFirstNamed(QComboBox *combo)
{
    int index = 0;
    while (index < combo->count() && combo->itemText(index).isEmpty())
        ++index;
    combo->setCurrentIndex(index < combo->count() ? index : -1);
}

} // namespace welmo
