#include "bench/table.h"

#include <QStringList>
#include <algorithm>

namespace bench {

namespace {

// Three significant digits.
QString figure(double value)
{
    const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : value >= 1 ? 2 : 3;
    return QString::number(value, 'f', decimals);
}

QString pair(double median, double p99)
{
    return figure(median) + QStringLiteral(" / ") + figure(p99);
}

QStringList header()
{
    return {"What",
            "Floor",
            "Unit",
            "Ours, median / p99",
            "Floor, median / p99",
            "Ratio, median / p99"};
}

constexpr int firstNumber = 3;

QStringList cells(const Row &row)
{
    const Comparison &f = row.figures;
    return {row.what,
            row.floor,
            row.unit,
            pair(f.ours.median, f.ours.p99),
            pair(f.floor.median, f.floor.p99),
            QString::number(f.medianRatio(), 'f', 2) + QStringLiteral(" / ")
                + QString::number(f.p99Ratio(), 'f', 2)};
}

} // namespace

void Table::print(QTextStream &out, Form form) const
{
    QList<QStringList> lines{header()};
    for (const Row &row : m_rows)
        lines.append(cells(row));
    QList<int> widths;
    for (int column = 0; column < lines.first().size(); ++column) {
        int width = 0;
        for (const QStringList &line : qAsConst(lines))
            width = std::max(width, line[column].size());
        widths.append(width);
    }
    const bool markdown = form == Form::Markdown;
    for (int i = 0; i < lines.size(); ++i) {
        QStringList padded;
        for (int column = 0; column < lines.first().size(); ++column)
            padded.append(column < firstNumber ? lines[i][column].leftJustified(widths[column])
                                               : lines[i][column].rightJustified(widths[column]));
        const QString line = padded.join(markdown ? QStringLiteral(" | ") : QStringLiteral("  "));
        out << (markdown ? QStringLiteral("| %1 |").arg(line) : line) << '\n';
        if (markdown && i == 0)
            out << "|---|---|---|--:|--:|--:|\n";
    }
    out.flush();
}

} // namespace bench
