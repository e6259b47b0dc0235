#include "widgets/pairfold.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>

namespace welmo {

namespace {

constexpr int secondPair = 4; // column in which the second pair starts
constexpr int columnCount = 7;
constexpr int labelWidths[] = {137, 109}; // of the two pairs, so that few labels take two lines
constexpr int unitWidths[] = {44, 51};
constexpr int leastFieldWidths[] = {0, 186};
constexpr int betweenPairs = 6;
constexpr int foldedLabelWidth = 170;
constexpr int spacing = 6;
constexpr int fieldStretch = 100;
constexpr int narrowest = 400; // one label, one field, one unit

void shapeColumns(QGridLayout *grid, bool folded)
{
    grid->setHorizontalSpacing(spacing);
    for (int column = 0; column < columnCount; ++column) {
        const bool isUsed = !folded || column < secondPair - 1;
        const bool isField = column % secondPair == 1;
        const bool isUnit = column % secondPair == 2;
        // With a stretch of 0 a column would take that of a box that spans it.
        grid->setColumnStretch(column, !isUsed ? 0 : isField ? fieldStretch : isUnit ? 1 : 0);
        const int pair = column > secondPair ? 1 : 0;
        const int width = isUnit       ? unitWidths[folded ? 1 : pair]
            : isField                  ? leastFieldWidths[pair]
            : column == secondPair - 1 ? betweenPairs
                                       : 0;
        grid->setColumnMinimumWidth(column, isUsed ? width : 0);
    }
}

} // namespace

void PairFold::follow(QWidget *form)
{
    for (QGroupBox *group : form->findChildren<QGroupBox *>())
        new PairFold(group);
}

PairFold::PairFold(QGroupBox *group, QAbstractButton *aside)
    : QObject(group)
    , m_group(group)
    , m_aside(aside)
{
    for (QGridLayout *grid : group->findChildren<QGridLayout *>())
        collect(grid);
    arrange(false);
    group->setMinimumWidth(narrowest); // else the layout's own minimum would prevent folding
    group->installEventFilter(this);
}

void PairFold::collect(QGridLayout *grid)
{
    m_grids.append(grid);
    for (int i = 0; i < grid->count(); ++i) {
        Place place{grid, grid->itemAt(i), 0, 0, 0};
        int rows = 0;
        grid->getItemPosition(i, &place.row, &place.column, &rows, &place.columns);
        m_places.append(place);
    }
}

bool PairFold::eventFilter(QObject *watched, QEvent *event)
{
    // A shown widget has its style, which changes the widths.
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        measureAnew();
    else if (event->type() == QEvent::LayoutRequest)
        m_folded ? keepLabelsWhole() : fit();
    return QObject::eventFilter(watched, event);
}

// A scroll area uses only the labels' size hints, which do not know that narrow text takes more
// lines. Hidden labels have no style yet; they are measured when they are shown.
void PairFold::keepLabelsWhole()
{
    for (const Place &place : qAsConst(m_places)) {
        QWidget *label = place.column % secondPair == 0 ? place.item->widget() : nullptr;
        if (label && label->isVisibleTo(m_group) && label->hasHeightForWidth())
            label->setMinimumHeight(label->heightForWidth(label->minimumWidth()));
    }
}

void PairFold::measureAnew()
{
    if (m_folded)
        fold(false);
    fit();
}

void PairFold::fit()
{
    keepLabelsWhole();
    if (m_group->width() < m_group->layout()->totalMinimumSize().width())
        fold(true);
}

void PairFold::arrange(bool folded)
{
    for (QGridLayout *grid : qAsConst(m_grids)) {
        while (grid->takeAt(0)) { } // m_places keeps the items
        shapeColumns(grid, folded);
    }
    for (const Place &place : qAsConst(m_places)) {
        const int second = place.column >= secondPair ? 1 : 0;
        const int row = folded ? 2 * place.row + second : place.row;
        const int column = folded ? place.column - second * secondPair : place.column;
        if (QWidget *label = place.item->widget(); label && place.column % secondPair == 0)
            label->setFixedWidth(folded ? foldedLabelWidth : labelWidths[second]);
        place.grid->addItem(place.item, row, column, 1, place.columns);
    }
}

void PairFold::fold(bool folded)
{
    m_folded = folded;
    arrange(folded);
    keepLabelsWhole();
    if (!m_aside)
        return;
    auto *rows = static_cast<QBoxLayout *>(m_group->layout());
    const int last = rows->count() - 1;
    if (folded)
        rows->insertWidget(last, m_aside, 0, Qt::AlignLeft);
    else
        static_cast<QBoxLayout *>(rows->itemAt(last)->layout())->insertWidget(0, m_aside);
}

} // namespace welmo
