#pragma once

#include <QVector>

#include "pendant/input/fieldpad.h"

namespace welmo::pendant {

/// A plain keyboard for one line of text: letters, digits, and the signs that names need.
class TextPad : public FieldPad
{
    Q_OBJECT
public:
    TextPad(QWidget *line, QWidget *parent);

private:
    enum class Face { Small, Capital, Signs };

    void addLetters(QGridLayout *grid);
    void addCommands(QGridLayout *grid);
    void show(Face face);
    void onLetter(int key);

    QVector<QPushButton *> m_letters; // row by row
    Face m_face = Face::Small;
};

} // namespace welmo::pendant
