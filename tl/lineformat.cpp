#include "tl/lineformat.h"

#include "tl/parsedline.h"
#include "tl/text.h"

namespace welmo::tl {

namespace {

QString quoted(const QString &name)
{
    return QLatin1Char('"') + nameText(name) + QLatin1Char('"');
}

QString line(Word word, const QString &arguments)
{
    return row(word).text() + QLatin1Char(' ') + arguments;
}

} // namespace

QString formatFileLine(Word word, const QStringList &files)
{
    QStringList names;
    for (const QString &file : files)
        names.append(quoted(file));
    return line(word, names.join(QLatin1Char(',')));
}

QString formatTimedLine(Word word, double seconds)
{
    return line(word, numberText(seconds));
}

QString MoveParameters::format() const
{
    QStringList items{nameText(speed), nameText(zone), nameText(tool), nameText(wobj)};
    if (!weave.isEmpty() && weave != noWeave)
        items.append(quoted(weave));
    return items.join(QLatin1Char(','));
}

QString formatMoveLine(Word word, const QStringList &points, const QString &parameters)
{
    return line(word, points.join(QLatin1Char(',')) + QLatin1Char(',') + parameters);
}

} // namespace welmo::tl
