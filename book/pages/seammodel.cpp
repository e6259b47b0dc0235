#include "book/pages/seammodel.h"

#include <QBrush>
#include <QLocale>

#include "book/pages/words.h"

namespace welmo::book {

void SeamModel::setSeams(const QVector<Seam> &seams)
{
    beginResetModel();
    m_seams = seams;
    endResetModel();
}

int SeamModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_seams.size();
}

int SeamModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SeamModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_seams.size())
        return {};
    const Seam &seam = m_seams[index.row()];
    if (role == Qt::DisplayRole)
        return textOf(seam, index.column());
    if (role == Qt::ForegroundRole && index.column() == Judged)
        return QBrush(verdictColor(seam.verdict));
    if (role == Qt::TextAlignmentRole && index.column() >= Current)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QString SeamModel::textOf(const Seam &seam, int column) const
{
    switch (column) {
    case Judged: // the sign can be read without its colour
        return QStringLiteral("○✓!✗").at(static_cast<int>(seam.verdict));
    case Started:
        return seam.startedAt().toString(QStringLiteral("MM-dd HH:mm:ss"));
    case Place:
        return seam.program.isEmpty() ? Words::notTold()
                                      : QStringLiteral("%1:%2").arg(seam.program).arg(seam.line);
    case File:
        return seam.isReal() ? seam.weldFile : Words::mode(seam.mode);
    case Current:
        return Words::number(seam.current.mean, 0, QStringLiteral("A"));
    case Voltage:
        return Words::number(seam.voltage.mean, 1, QStringLiteral("V"));
    case Length:
        return Words::number(seam.length, 0, QStringLiteral("mm"));
    case Heat:
        return Words::number(seam.heatInput, 2);
    default:
        return {};
    }
}

QVariant SeamModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int((section >= Current ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    const QString titles[ColumnCount] = {
        QString(),     tr("Start"),   tr("Program"), tr("File"),
        tr("Current"), tr("Voltage"), tr("Length"),  tr("kJ/mm"),
    };
    return titles[section];
}

} // namespace welmo::book
