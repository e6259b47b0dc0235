#pragma once

#include <QAbstractTableModel>
#include <QVector>

#include "book/records/seam.h"

namespace welmo::book {

/// Records as a table for the page, newest first.
class SeamModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Judged, Started, Place, File, Current, Voltage, Length, Heat, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setSeams(const QVector<Seam> &seams);
    const QVector<Seam> &seams() const { return m_seams; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString textOf(const Seam &seam, int column) const;

    QVector<Seam> m_seams;
};

} // namespace welmo::book
