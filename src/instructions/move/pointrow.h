#pragma once

#include <QWidget>
#include <array>

#include "instructions/move/pointpose.h"

class QDoubleSpinBox;
class QGridLayout;
class QLabel;

namespace welmo {

/// A title and six cells side by side for a pose or for offsets: x, y, z in millimetres, a, b, c in
/// degrees. The cells of rows below each other are aligned.
class PointCells : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle) // clazy:exclude=qproperty-without-notify
public:
    QString title() const;
    void setTitle(const QString &title);
    /// Shows axes and units above the cells.
    void showHeader();

    const PoseValues &values() const { return m_values; }

protected:
    explicit PointCells(QWidget *parent);
    void addCell(int index, QWidget *cell);

    PoseValues m_values{};

private:
    QGridLayout *m_grid;
    QLabel *m_title;
};

/// Values that can be edited.
///
/// A box shows three decimals; the value behind it stays exact until the user edits that box, so
/// that showing a number never changes it.
class PointRow : public PointCells
{
    Q_OBJECT
public:
    explicit PointRow(QWidget *parent = nullptr);

    /// Enables the first @p count boxes and disables the others.
    void setActiveBoxes(int count);
    void setValues(const PoseValues &values);
    /// Shows dashes in place of values.
    void clear();

signals:
    /// The user edited a box.
    void edited();

protected:
    std::array<QDoubleSpinBox *, 6> m_boxes{};
};

/// Values that are only shown.
class PointReadout : public PointRow
{
    Q_OBJECT
public:
    explicit PointReadout(QWidget *parent = nullptr);
};

} // namespace welmo
