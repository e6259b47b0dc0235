#include "bench/rawwidgets.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLineEdit>

#include "ui_rawarcoffgroup.h"
#include "ui_rawarcongroup.h"
#include "ui_rawpointedit.h"
#include "ui_rawweldgroup.h"

namespace {

constexpr int cellCount = 6;

// Folded, as the package's groups are at first.
template<typename Form>
void setUp(QGroupBox *group, QWidget *Form::*advanced)
{
    Form form;
    form.setupUi(group);
    (form.*advanced)->hide();
}

QGridLayout *gridOf(QWidget *widget)
{
    return static_cast<QGridLayout *>(widget->layout());
}

} // namespace

RawArconGroup::RawArconGroup(QWidget *parent)
    : QGroupBox(parent)
{
    setUp<Ui::RawArconGroup>(this, &Ui::RawArconGroup::wgt_arconAdvancedParam);
}

RawWeldGroup::RawWeldGroup(QWidget *parent)
    : QGroupBox(parent)
{
    setUp<Ui::RawWeldGroup>(this, &Ui::RawWeldGroup::wgt_weldAdvancedParam);
}

RawArcoffGroup::RawArcoffGroup(QWidget *parent)
    : QGroupBox(parent)
{
    setUp<Ui::RawArcoffGroup>(this, &Ui::RawArcoffGroup::wgtArcoffAdvancedParam);
}

RawPointCells::RawPointCells(QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnMinimumWidth(0, 88);
    grid->addWidget(m_title, 1, 0);
}

void RawPointCells::addCell(int index, QWidget *cell)
{
    cell->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    gridOf(this)->addWidget(cell, 1, index + 1);
    gridOf(this)->setColumnStretch(index + 1, 1);
}

void RawPointCells::showHeader()
{
    for (int i = 0; i < cellCount; ++i)
        gridOf(this)->addWidget(new QLabel(QStringLiteral("X (mm)"), this), 0, i + 1);
}

RawPointRow::RawPointRow(QWidget *parent)
    : RawPointCells(parent)
{
    for (int i = 0; i < cellCount; ++i) {
        auto *box = new QDoubleSpinBox(this);
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        box->setAlignment(Qt::AlignRight);
        addCell(i, box);
    }
}

RawPointReadout::RawPointReadout(QWidget *parent)
    : RawPointCells(parent)
{
    for (int i = 0; i < cellCount; ++i) {
        auto *edit = new QLineEdit(this);
        edit->setReadOnly(true);
        addCell(i, edit);
    }
}

RawPointEdit::RawPointEdit(QWidget *parent)
    : QWidget(parent)
{
    Ui::RawPointEdit form;
    form.setupUi(this);
    form.wgtOffsets->showHeader();
}
