#include "tl/text.h"

#include <algorithm>
#include <cmath>

namespace welmo::tl {

namespace {

bool breaksLine(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return QStringView(u"\",;()").contains(character);
    }
}

} // namespace

QString numberText(double value)
{
    return QString::number(value, 'g', 6);
}

std::optional<double> readNumber(const QString &text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::make_optional(value) : std::nullopt;
}

QString nameText(const QString &name)
{
    QString text = name;
    std::replace_if(text.begin(), text.end(), breaksLine, QLatin1Char('_'));
    return text;
}

} // namespace welmo::tl
