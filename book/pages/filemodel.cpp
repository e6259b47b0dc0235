#include "book/pages/filemodel.h"

#include <QDateTime>

#include "book/keeper/filewatch.h"
#include "book/pages/fieldwords.h"
#include "book/pages/words.h"
#include "schema/filesets.h"

namespace welmo::book {

void FileModel::setRows(const QVector<Row> &rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

int FileModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int FileModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FileModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    if (role == Qt::DisplayRole)
        return textOf(m_rows[index.row()], index.column());
    if (role == Qt::TextAlignmentRole && index.column() == Welds)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QString FileModel::textOf(const Row &row, int column) const
{
    switch (column) {
    case Name:
        return row.file;
    case Annotation:
        return row.content.toMap().value(QStringLiteral("annotation")).toString();
    case MainValues:
        return FieldWords::mainValues(*schema::setOfFile(row.file), row.content);
    case Changed:
        return row.newest.number ? Words::moment(row.newest.time) : QString();
    case By:
        return Words::user(row.newest.user);
    case Programs:
        return row.programs;
    case Welds:
        return row.welds ? QString::number(row.welds) : QString();
    default:
        return {};
    }
}

QVariant FileModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int((section == Welds ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    const QString titles[ColumnCount] = {tr("File"), tr("Annotation"),  tr("Values"), tr("Changed"),
                                         tr("By"),   tr("In programs"), tr("Welds")};
    return titles[section];
}

} // namespace welmo::book
