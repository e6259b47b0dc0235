#pragma once

#include <QAbstractTableModel>
#include <QVector>

#include "book/records/filehistory.h"

namespace welmo::book {

/// The parameter files as a table.
class FileModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Name, Annotation, MainValues, Changed, By, Programs, Welds, ColumnCount };

    struct Row
    {
        QString file;
        QVariant content;
        FileVersion newest;
        QString programs; ///< with their lines
        int welds = 0;
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setRows(const QVector<Row> &rows);
    const QVector<Row> &rows() const { return m_rows; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString textOf(const Row &row, int column) const;

    QVector<Row> m_rows;
};

} // namespace welmo::book
