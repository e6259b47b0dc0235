#include "book/pages/controls.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QListView>
#include <QScroller>
#include <QTableView>

namespace welmo::book {

namespace {

constexpr int rowHeight = 45;
constexpr int fewestLetters = 8;

} // namespace

QTableView *makeTable(const QString &name, QWidget *parent)
{
    auto *table = new QTableView(parent);
    table->setObjectName(name);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setWordWrap(false);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QScroller::grabGesture(table->viewport(), QScroller::TouchGesture);
    return table;
}

QComboBox *makeCombo(const QString &name, QWidget *parent)
{
    auto *combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setView(new QListView(combo)); // the style rules make this view's rows high enough
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(fewestLetters);
    return combo;
}

QDoubleSpinBox *makeNumber(const QString &name, QWidget *parent)
{
    auto *box = new QDoubleSpinBox(parent);
    box->setObjectName(name);
    box->setLocale(QLocale::c());
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setMinimumWidth(140);
    return box;
}

void fitColumns(const QWidget *page, QTableView *table, std::initializer_list<int> lesser)
{
    constexpr int widthForAll = 860;
    for (const int column : lesser)
        table->setColumnHidden(column, page->width() < widthForAll);
}

ButtonBar::ButtonBar(QWidget *parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(8);
}

void ButtonBar::add(QWidget *widget, int stretch)
{
    m_row->addWidget(widget, stretch);
}

void ButtonBar::addStretch()
{
    m_row->addStretch(1);
}

} // namespace welmo::book
