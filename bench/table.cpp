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

constexpr double coreHertz = 1.2e9;
constexpr double coreInstructionsPerCycle = 0.7;

QString onPendant(double instructions)
{
    return figure(instructions / (coreHertz * coreInstructionsPerCycle) * 1000);
}

QStringList header(bool counts)
{
    if (counts)
        return {"What", "Floor", "Unit", "Ours", "Floor", "Ratio", "Ours on a pendant, ms"};
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
    const QString ratio = QString::number(f.medianRatio(), 'f', 2);
    if (row.unit == countUnit)
        return {row.what,
                row.floor,
                row.unit,
                figure(f.ours.median / 1000),
                figure(f.floor.median / 1000),
                ratio,
                onPendant(f.ours.median)};
    return {row.what,
            row.floor,
            row.unit,
            pair(f.ours.median, f.ours.p99),
            pair(f.floor.median, f.floor.p99),
            ratio + QStringLiteral(" / ") + QString::number(f.p99Ratio(), 'f', 2)};
}

} // namespace

void Table::print(QTextStream &out, Form form) const
{
    QList<QStringList> lines{header(!m_rows.empty() && m_rows.front().unit == countUnit)};
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
            out << "|---|---|---|"
                << QStringLiteral("--:|").repeated(line.count(QStringLiteral(" | ")) - 2) << '\n';
    }
    out.flush();
}

} // namespace bench
