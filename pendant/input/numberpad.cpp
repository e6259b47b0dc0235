#include "pendant/input/numberpad.h"

#include <QAbstractSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "pendant/input/numberentry.h"
#include "pendant/theme/look.h"

namespace welmo::pendant {

namespace {

constexpr int padWidth = 300;
constexpr int longestUnit = 6;

// The text of the label beside the field, on its left or on its right.
QString neighbour(const QWidget *field, bool left)
{
    const QLabel *nearest = nullptr;
    const auto distance = [&](const QWidget *label) {
        return left ? field->geometry().left() - label->geometry().right()
                    : label->geometry().left() - field->geometry().right();
    };
    const QRect line(0, field->y(), field->parentWidget()->width(), field->height());
    for (const QLabel *label :
         field->parentWidget()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool beside =
            label->isVisible() && distance(label) >= 0 && line.contains(label->geometry().center());
        if (beside && (!nearest || distance(label) < distance(nearest)))
            nearest = label;
    }
    return nearest ? nearest->text() : QString();
}

QString unitOf(const QWidget *field)
{
    const QString text = neighbour(field, false);
    return text.isEmpty() || text.size() > longestUnit ? QString() : QLatin1Char(' ') + text;
}

} // namespace

NumberPad::NumberPad(QAbstractSpinBox *box, QWidget *parent)
    : FieldPad(box, parent)
    , m_box(box)
{
    setFixedWidth(padWidth);
    const QString unit = unitOf(box);
    addLine(QStringLiteral("lblPadName"), neighbour(box, true));
    m_typed = addLine(QStringLiteral("lblPadTyped"), QString());
    m_facts = addLine(QStringLiteral("lblPadFacts"),
                      tr("was %1, %2 to %3")
                          .arg(NumberEntry::typed(box) + unit, NumberEntry::lowest(box),
                               NumberEntry::highest(box) + unit));
    addKeys();
    connect(NumberEntry::lineOf(box), &QLineEdit::textChanged, this, &NumberPad::showTyped);
    showTyped();
}

QLabel *NumberPad::addLine(const QString &name, const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(name);
    label->setWordWrap(true);
    column()->addWidget(label);
    return label;
}

void NumberPad::addKeys()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(column()->spacing());
    column()->addLayout(grid);
    for (int digit = 0; digit <= 9; ++digit) {
        const int row = digit == 0 ? 3 : 2 - (digit - 1) / 3;
        auto *key = addKey(grid, QString::number(digit), row, digit == 0 ? 0 : (digit - 1) % 3);
        connect(key, &QPushButton::clicked, this,
                [this, digit] { type(Qt::Key(Qt::Key_0 + digit), QString::number(digit)); });
    }
    auto *pointKey = addKey(grid, QStringLiteral("."), 3, 1);
    pointKey->setEnabled(NumberEntry::takesPoint(m_box));
    connect(pointKey, &QPushButton::clicked, this,
            [this] { type(Qt::Key_Period, QStringLiteral(".")); });
    auto *sign = addKey(grid, QStringLiteral("±"), 3, 2);
    sign->setEnabled(NumberEntry::takesSign(m_box));
    connect(sign, &QPushButton::clicked, this, &NumberPad::onSign);
    connect(addKey(grid, QStringLiteral("←"), 0, 3), &QPushButton::clicked, this,
            [this] { type(Qt::Key_Backspace); });
    connect(addKey(grid, tr("Back"), 1, 3), &QPushButton::clicked, this, &NumberPad::cancelled);
    auto *enter = addKey(grid, tr("Enter"), 2, 3);
    grid->addWidget(enter, 2, 3, 2, 1);
    enter->setFixedHeight(2 * keyHeight + grid->spacing());
    enter->setObjectName(QStringLiteral("btnPadEnter"));
    connect(enter, &QPushButton::clicked, this, &NumberPad::entered);
}

// Changes the sign of what was typed, so that the key can be touched at any time.
void NumberPad::onSign()
{
    QString text = NumberEntry::typed(m_box);
    if (text.startsWith(QLatin1Char('-')))
        text.remove(0, 1);
    else
        text.prepend(QLatin1Char('-'));
    m_box->selectAll();
    type(Qt::Key_Backspace);
    for (const QChar letter : qAsConst(text))
        type(Qt::Key_unknown, letter);
}

void NumberPad::showTyped()
{
    m_typed->setText(NumberEntry::typed(m_box));
}

void NumberPad::complain(const QString &line)
{
    m_facts->setText(line);
    setStyleWord(m_facts, "refused", QStringLiteral("yes"));
    adjustSize();
}

} // namespace welmo::pendant
