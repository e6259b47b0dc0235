#include "pendant/program/formstart.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QRegularExpression>

#include "pendant/program/filefacts.h"
#include "pendant/program/programdocument.h"
#include "schema/names.h"
#include "tessa/xservice.h"
#include "tl/parse.h"

namespace welmo::pendant {

namespace {

constexpr int linesToLookThrough = 200;

QStringList namesIn(const QString &line)
{
    static const QRegularExpression between(QStringLiteral("[\\s,\"()]+"));
    return line.split(between, Qt::SkipEmptyParts).mid(1);
}

bool chooseFirstOf(const QStringList &names, QComboBox *combo)
{
    for (const QString &name : names) {
        if (const int index = combo->findText(name); index >= 0) {
            combo->setCurrentIndex(index);
            return true;
        }
    }
    return false;
}

} // namespace

QString lineToStartFrom(const ProgramDocument &document, const QString &word, int line)
{
    const tl::Instruction *wanted = tl::findInstruction(word);
    const bool isMove = wanted && wanted->kind == tl::Kind::Move;
    QString move;
    const int last = qMax(0, line - linesToLookThrough);
    for (int row = qMin(line, document.rowCount()) - 1; row >= last; --row) {
        const tl::ParsedLine above = tl::parse(document.line(row));
        if (above.word.text == word)
            return above.code();
        if (isMove && move.isNull() && above.instruction
            && above.instruction->kind == tl::Kind::Move)
            move = above.code();
    }
    return move;
}

void startFrom(QWidget *form, const QString &line)
{
    const QStringList names = namesIn(line);
    const auto combos = form->findChildren<QComboBox *>();
    for (QComboBox *combo : combos)
        chooseFirstOf(names, combo);
    const auto numbers = form->findChildren<QDoubleSpinBox *>();
    bool isNumber = false;
    const double number = names.value(0).toDouble(&isNumber);
    if (combos.isEmpty() && numbers.size() == 1 && isNumber)
        numbers.first()->setValue(number);
}

QString filesNamedIn(const QWidget *form)
{
    const auto setting = xservice()->get(nullptr, names::welderSetting);
    const double rated = ratedCurrentIn(setting->toVariant().toMap());
    QStringList lines;
    for (const QComboBox *combo : form->findChildren<QComboBox *>()) {
        const QString file = combo->currentText();
        if (!setOfFile(file))
            continue;
        if (const FileFacts facts = factsOf(file, rated, xservice()); facts.isKnown)
            lines.append(file + QStringLiteral(": ") + facts.summary());
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace welmo::pendant
