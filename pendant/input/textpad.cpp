#include "pendant/input/textpad.h"

#include <QGridLayout>
#include <QPushButton>

namespace welmo::pendant {

namespace {

constexpr int padWidth = 700;
constexpr int keysInRow = 10;
// Four rows of ten keys.
const QString small = QStringLiteral("1234567890qwertyuiopasdfghjkl-zxcvbnm,._");
const QString signs = QStringLiteral("1234567890!?\"'()[]{}+-*/=<>%&#@:;~$|\\,._");

} // namespace

TextPad::TextPad(QWidget *line, QWidget *parent)
    : FieldPad(line, parent)
{
    setFixedWidth(padWidth);
    auto *grid = new QGridLayout;
    grid->setSpacing(column()->spacing());
    for (int i = 0; i < keysInRow; ++i)
        grid->setColumnStretch(i, 1);
    column()->addLayout(grid);
    addLetters(grid);
    addCommands(grid);
    show(Face::Small);
}

void TextPad::addLetters(QGridLayout *grid)
{
    for (int key = 0; key < small.size(); ++key) {
        m_letters.append(addKey(grid, QString(), key / keysInRow, key % keysInRow));
        connect(m_letters.last(), &QPushButton::clicked, this, [this, key] { onLetter(key); });
    }
}

void TextPad::addCommands(QGridLayout *grid)
{
    const int row = small.size() / keysInRow;
    connect(addKey(grid, QStringLiteral("⇧"), row, 0), &QPushButton::clicked, this,
            [this] { show(m_face == Face::Capital ? Face::Small : Face::Capital); });
    connect(addKey(grid, QStringLiteral("#+="), row, 1), &QPushButton::clicked, this,
            [this] { show(m_face == Face::Signs ? Face::Small : Face::Signs); });
    connect(addKey(grid, QString(), row, 2, 3), &QPushButton::clicked, this,
            [this] { type(Qt::Key_Space, QStringLiteral(" ")); });
    connect(addKey(grid, QStringLiteral("←"), row, 5), &QPushButton::clicked, this,
            [this] { type(Qt::Key_Backspace); });
    connect(addKey(grid, tr("Back"), row, 6, 2), &QPushButton::clicked, this, &TextPad::cancelled);
    auto *enter = addKey(grid, tr("Enter"), row, 8, 2);
    enter->setObjectName(QStringLiteral("btnPadEnter"));
    connect(enter, &QPushButton::clicked, this, &TextPad::entered);
}

void TextPad::show(Face face)
{
    m_face = face;
    const QString &faces = face == Face::Signs ? signs : small;
    for (int key = 0; key < m_letters.size(); ++key) {
        const QChar letter = faces.at(key);
        const QString text = face == Face::Capital ? letter.toUpper() : letter;
        // A single "&" would underline the next character.
        m_letters.at(key)->setText(text == QLatin1String("&") ? QStringLiteral("&&") : text);
    }
}

void TextPad::onLetter(int key)
{
    const QString text = m_letters.at(key)->text().at(0);
    type(Qt::Key_unknown, text);
    if (m_face == Face::Capital)
        show(Face::Small);
}

} // namespace welmo::pendant
