#pragma once

#include <QPushButton>
#include <QString>

class QComboBox;
class QDoubleSpinBox;
class QHBoxLayout;
class QTableView;

namespace welmo::book {

/// A table for fingers: it selects whole rows, one at a time, and a drag scrolls.
QTableView *makeTable(const QString &name, QWidget *parent);
/// Hides the columns that matter less while @p page is narrow, as beside an open side bar; to be
/// called whenever the page's size changes.
void fitColumns(const QWidget *page, QTableView *table, std::initializer_list<int> lesser);
/// A combo box that keeps its width whatever its items are.
QComboBox *makeCombo(const QString &name, QWidget *parent);
/// A box for a number, to be typed.
QDoubleSpinBox *makeNumber(const QString &name, QWidget *parent);

/// What a page or a panel offers to do: a row of buttons and what belongs to them, from the left.
class ButtonBar : public QWidget
{
public:
    explicit ButtonBar(QWidget *parent);

    template<typename Receiver, typename Slot>
    QPushButton *add(const QString &text, const char *name, Receiver *receiver, Slot slot)
    {
        auto *button = new QPushButton(text, this);
        button->setObjectName(QString::fromLatin1(name));
        connect(button, &QPushButton::clicked, receiver, slot);
        add(button);
        return button;
    }
    void add(QWidget *widget, int stretch = 0);
    /// What comes after it stands at the right.
    void addStretch();

private:
    QHBoxLayout *m_row;
};

} // namespace welmo::book
