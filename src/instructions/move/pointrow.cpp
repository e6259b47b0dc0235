#include "instructions/move/pointrow.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <cmath>

#include "schema/unit.h"

namespace welmo {

namespace {

const QString axes = QStringLiteral("XYZABC");
constexpr int cellCount = 6;
constexpr double farthest = 999999.999;
constexpr int decimals = 3;
constexpr double noise = 1e-9; // what the product of poses leaves in place of 0
constexpr int titleWidth = 88;

// Three, or for a small number as many as show two of its digits: it must not look like 0.
int decimalsFor(double value)
{
    const double size = std::abs(value);
    const bool isSmall = size > noise && size < 0.5 * std::pow(10, -decimals);
    return isSmall ? 1 - int(std::floor(std::log10(size))) : decimals;
}

QDoubleSpinBox *makeBox(QWidget *parent)
{
    auto *box = new QDoubleSpinBox(parent);
    box->setLocale(QLocale::c()); // as the program line writes them
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setDecimals(decimals);
    box->setRange(-farthest - 1, farthest); // the lowest value shows dashes
    box->setSpecialValueText(QStringLiteral("–"));
    box->setValue(0);
    box->setAlignment(Qt::AlignRight);
    return box;
}

} // namespace

PointCells::PointCells(QWidget *parent)
    : QWidget(parent)
    , m_grid(new QGridLayout(this))
    , m_title(new QLabel(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(6);
    m_grid->setVerticalSpacing(0);
    m_grid->setColumnMinimumWidth(0, titleWidth);
    m_grid->addWidget(m_title, 1, 0);
}

void PointCells::addCell(int index, QWidget *cell)
{
    cell->setObjectName(QStringLiteral("sbx") + axes.at(index));
    cell->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_grid->addWidget(cell, 1, index + 1);
    m_grid->setColumnStretch(index + 1, 1);
}

QString PointCells::title() const
{
    return m_title->text();
}

void PointCells::setTitle(const QString &title)
{
    m_title->setText(title);
}

void PointCells::showHeader()
{
    for (int i = 0; i < cellCount; ++i) {
        const QString unit = i < 3 ? units::mm : units::degree;
        auto *label = new QLabel(QStringLiteral("%1 (%2)").arg(axes.at(i)).arg(unit), this);
        label->setAlignment(Qt::AlignCenter);
        m_grid->addWidget(label, 0, i + 1);
    }
}

PointRow::PointRow(QWidget *parent)
    : PointCells(parent)
{
    for (int i = 0; i < cellCount; ++i) {
        m_boxes[i] = makeBox(this);
        addCell(i, m_boxes[i]);
        connect(m_boxes[i], qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                [this, i](double value) {
                    m_values[i] = value;
                    emit edited();
                });
    }
}

void PointRow::setActiveBoxes(int count)
{
    for (int i = 0; i < cellCount; ++i)
        m_boxes[i]->setEnabled(i < count);
}

void PointRow::setValues(const PoseValues &values)
{
    for (int i = 0; i < cellCount; ++i) {
        const QSignalBlocker blocker(m_boxes[i]);
        const int needed = decimalsFor(values[i]);
        if (needed != m_boxes[i]->decimals())
            m_boxes[i]->setDecimals(needed);
        const double scale = std::pow(10, m_boxes[i]->decimals());
        const double shown = std::round(values[i] * scale) / scale + 0.0; // no signed zero
        m_boxes[i]->setValue(qMax(shown, -farthest));
    }
    m_values = values;
}

void PointRow::clear()
{
    for (QDoubleSpinBox *box : m_boxes) {
        const QSignalBlocker blocker(box);
        box->setValue(box->minimum());
    }
    m_values = {};
}

PointReadout::PointReadout(QWidget *parent)
    : PointRow(parent)
{
    for (QDoubleSpinBox *box : m_boxes) {
        box->setReadOnly(true);
        box->setFocusPolicy(Qt::NoFocus);
    }
    PointRow::clear();
}

} // namespace welmo
