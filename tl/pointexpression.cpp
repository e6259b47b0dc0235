#include "tl/pointexpression.h"

#include <QRegularExpression>
#include <algorithm>

#include "tl/text.h"

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

} // namespace

QStringList splitPoint(const QString &text)
{
    // Looking back, and no further than the last ")", keeps the time linear on any text.
    static const QRegularExpression call(QStringLiteral("(?<!\\w)(\\w+)\\(([^)]+)\\)"));
    const QString head = text.left(text.lastIndexOf(QLatin1Char(')')) + 1);
    const QRegularExpressionMatch match = call.match(head);
    if (!match.hasMatch())
        return {plainFunction, text.trimmed()};
    QStringList parts{match.captured(1)};
    const QStringList items = match.captured(2).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &item : items)
        parts.append(item.trimmed());
    return parts;
}

int PointExpression::numberCount(Kind kind)
{
    switch (kind) {
    case Kind::Offs:
        return 3;
    case Kind::RelTool:
        return 6;
    default:
        return 0;
    }
}

Spelling PointExpression::spellingOf(const QString &text)
{
    return text.contains(insertRelTool + QLatin1Char('(')) ? Spelling::Insert : Spelling::Property;
}

PointExpression PointExpression::parse(const QString &text)
{
    const QStringList parts = splitPoint(text);
    PointExpression point{kindOf(parts.first()), parts.value(1), {}};
    for (int i = 0; i < numberCount(point.kind); ++i)
        point.numbers.append(readNumber(parts.value(2 + i)).value_or(0));
    return point;
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

bool readsAsWritten(const QString &text)
{
    const QStringList parts = splitPoint(text);
    const Kind kind = kindOf(parts.first());
    if (kind == Kind::Plain)
        return !text.contains(QLatin1Char('('));
    return text.startsWith(parts.first() + QLatin1Char('('))
        && text.indexOf(QLatin1Char(')')) == text.size() - 1
        && parts.size() == 2 + PointExpression::numberCount(kind)
        && std::all_of(parts.begin() + 2, parts.end(),
                       [](const QString &number) { return readNumber(number).has_value(); });
}

QString normalPoint(const QString &text)
{
    if (!readsAsWritten(text))
        return {};
    const PointExpression point = PointExpression::parse(text);
    const QString normal = point.format(PointExpression::spellingOf(text));
    return PointExpression::parse(normal) == point ? normal : QString();
}

} // namespace welmo::tl
