#include "instructions/pointrow.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

#include "data/units.h"

using namespace welmo;

namespace {

constexpr double farthest = 999999.999;
constexpr int titleWidth = 88;

QDoubleSpinBox *makeBox(QWidget *parent, const QString &name)
{
    auto *box = new QDoubleSpinBox(parent);
    box->setObjectName(name);
    box->setLocale(QLocale::c()); // as the program line writes them
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setDecimals(3);
    box->setRange(-farthest - 1, farthest); // the lowest value stands for "none"
    box->setSpecialValueText(QStringLiteral("–"));
    box->setValue(0);
    box->setAlignment(Qt::AlignRight);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return box;
}

} // namespace

PointRow::PointRow(QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(6);
    m_grid->setVerticalSpacing(0);
    m_grid->setColumnMinimumWidth(0, titleWidth);
    m_grid->addWidget(m_title, 1, 0);
    const std::array<QString, 6> names{QStringLiteral("sbxX"), QStringLiteral("sbxY"),
                                       QStringLiteral("sbxZ"), QStringLiteral("sbxA"),
                                       QStringLiteral("sbxB"), QStringLiteral("sbxC")};
    for (int i = 0; i < int(names.size()); ++i) {
        QDoubleSpinBox *box = makeBox(this, names[i]);
        m_boxes[i] = box;
        m_grid->addWidget(box, 1, i + 1);
        m_grid->setColumnStretch(i + 1, 1);
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [this, i](double v) {
            m_values[i] = v;
            emit edited();
        });
    }
}

QString PointRow::title() const
{
    return m_title->text();
}

void PointRow::setTitle(const QString &title)
{
    m_title->setText(title);
}

void PointRow::showHeader()
{
    const QString axes = QStringLiteral("XYZABC");
    for (int i = 0; i < axes.size(); ++i) {
        const QString unit = i < 3 ? units::mm : units::degree;
        auto *label = new QLabel(QStringLiteral("%1 (%2)").arg(axes.at(i)).arg(unit), this);
        label->setAlignment(Qt::AlignCenter);
        m_grid->addWidget(label, 0, i + 1);
    }
}

void PointRow::setReadOnly()
{
    for (QDoubleSpinBox *box : m_boxes) {
        box->setReadOnly(true);
        box->setFocusPolicy(Qt::NoFocus);
    }
}

void PointRow::setActiveBoxes(int count)
{
    for (int i = 0; i < int(m_boxes.size()); ++i)
        m_boxes[i]->setEnabled(i < count);
}

void PointRow::setValues(const PoseValues &values)
{
    for (int i = 0; i < int(m_boxes.size()); ++i) {
        const QSignalBlocker blocker(m_boxes[i]);
        m_boxes[i]->setValue(qMax(values[i], -farthest));
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
