#pragma once

#include <QWidget>
#include <array>

#include "instructions/pointpose.h"

class QDoubleSpinBox;
class QGridLayout;
class QLabel;

/// Six boxes side by side for a pose or for offsets: x, y, z in millimetres, a, b, c in degrees.
///
/// A box shows three decimals; the value behind it stays exact until somebody edits that box, so
/// that showing a number never changes it.
class PointRow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    explicit PointRow(QWidget *parent = nullptr);

    QString title() const;
    void setTitle(const QString &title);
    /// Shows the axes and their units above the boxes.
    void showHeader();
    /// Values only, which nobody edits.
    void setReadOnly();
    /// Lets the first @p count boxes be edited and disables the others.
    void setActiveBoxes(int count);

    const welmo::PoseValues &values() const { return m_values; }
    void setValues(const welmo::PoseValues &values);
    /// Shows dashes: there is nothing to show.
    void clear();

signals:
    /// Somebody edited a box.
    void edited();

private:
    QLabel *m_title;
    QGridLayout *m_grid;
    std::array<QDoubleSpinBox *, 6> m_boxes;
    welmo::PoseValues m_values{};
};
