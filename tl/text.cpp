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

constexpr int longestName = 80;

// A name may be any text that a line can hold, even a megabyte of escape sequences.
QString presentable(const QString &name)
{
    QString text = name.left(longestName);
    for (QChar &character : text) {
        if (!character.isPrint())
            character = QLatin1Char('?');
    }
    return name.size() > longestName ? text + QChar(0x2026) : text;
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

QString filledIn(const QString &pattern, const QStringList &names)
{
    const auto name = [&names](int i) { return presentable(names.value(i)); };
    switch (names.size()) { // all at once, since a name may contain "%1"
    case 0:
        return pattern;
    case 1:
        return pattern.arg(name(0));
    case 2:
        return pattern.arg(name(0), name(1));
    default:
        return pattern.arg(name(0), name(1), name(2));
    }
}

} // namespace welmo::tl
