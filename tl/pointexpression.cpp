#include "tl/pointexpression.h"

#include <algorithm>

#include "tl/text.h"
#include "tl/token.h"

namespace welmo::tl {

namespace {

using Kind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;

const QString plainFunction = QStringLiteral("default");
const QString offsFunction = QStringLiteral("Offs");
const QString insertRelTool = QStringLiteral("RelTool");
const QString propertyRelTool = QStringLiteral("Reltool");

Kind kindOf(const QString &function)
{
    if (function == offsFunction)
        return Kind::Offs;
    if (function == insertRelTool || function == propertyRelTool)
        return Kind::RelTool;
    return Kind::Plain;
}

QString functionOf(Kind kind, Spelling spelling)
{
    if (kind == Kind::Offs)
        return offsFunction;
    return spelling == Spelling::Insert ? insertRelTool : propertyRelTool;
}

bool isReadAsWritten(const QString &text, const QStringList &parts, Kind kind)
{
    if (kind == Kind::Plain)
        return nameText(text) == text; // else it would be written under another name
    return text.startsWith(parts.first() + QLatin1Char('('))
        && text.indexOf(QLatin1Char(')')) == text.size() - 1
        && parts.size() == 2 + PointExpression::numberCount(kind)
        && std::all_of(parts.begin() + 2, parts.end(),
                       [](const QString &number) { return readNumber(number).has_value(); });
}

} // namespace

// The first call in the text, as the expression "(\w+)\(([^)]+)\)" finds it.
QStringList splitPoint(const QString &text)
{
    const int lastClosing = text.isValidUtf16() ? text.lastIndexOf(QLatin1Char(')')) : -1;
    for (int start = 0; start < lastClosing;) {
        int end = start;
        while (end < lastClosing && isWordCharacter(text.at(end)))
            ++end;
        const int close = end > start ? callEnd(text, end, text.size()) : -1;
        if (close > 0) {
            QStringList parts{text.mid(start, end - start)};
            const auto items =
                text.midRef(end + 1, close - end - 2).split(QLatin1Char(','), Qt::SkipEmptyParts);
            for (const QStringRef &item : items)
                parts.append(item.trimmed().toString());
            return parts;
        }
        start = qMax(end, start + 1);
    }
    return {plainFunction, text.trimmed()};
}

int PointExpression::numberCount(Kind kind)
{
    switch (kind) {
    case Kind::Plain:
        return 0;
    case Kind::Offs:
        return 3;
    case Kind::RelTool:
        return 6;
    }
    return 0;
}

PointExpression PointExpression::fromParts(const QStringList &parts)
{
    PointExpression point{kindOf(parts.value(0)), parts.value(1), {}};
    for (int i = 0; i < numberCount(point.kind); ++i)
        point.numbers.append(readNumber(parts.value(2 + i)).value_or(0));
    return point;
}

PointExpression PointExpression::parse(const QString &text)
{
    return fromParts(splitPoint(text));
}

QString PointExpression::format(Spelling spelling) const
{
    QStringList items{nameText(name)};
    if (kind == Kind::Plain)
        return items.first();
    for (int i = 0; i < numberCount(kind); ++i)
        items.append(numberText(numbers.value(i)));
    return functionOf(kind, spelling) + QLatin1Char('(') + items.join(QLatin1Char(','))
        + QLatin1Char(')');
}

bool operator==(const PointExpression &a, const PointExpression &b)
{
    return a.kind == b.kind && a.name == b.name && a.numbers == b.numbers;
}

PointReading readPoint(const QString &text)
{
    const QStringList parts = splitPoint(text);
    PointReading reading{PointExpression::fromParts(parts)};
    reading.isAsWritten = isReadAsWritten(text, parts, reading.point.kind);
    if (text.contains(insertRelTool + QLatin1Char('(')))
        reading.spelling = Spelling::Insert;
    return reading;
}

QString PointReading::normalForm() const
{
    if (!isAsWritten)
        return {};
    const QString normal = point.format(spelling);
    return PointExpression::parse(normal) == point ? normal : QString();
}

} // namespace welmo::tl
