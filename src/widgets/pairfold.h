#pragma once

#include <QObject>
#include <QVector>

class QAbstractButton;
class QGridLayout;
class QGroupBox;
class QLayoutItem;

namespace welmo {

/// Gives the grids of a group the usual columns, and folds them where the group is too narrow. Such
/// a grid has pairs side by side, each a label, a field and a unit in three columns, with one
/// column between; when folded, the second pair stands below the first.
class PairFold : public QObject
{
public:
    /// One for every group below @p form; each lives as long as its group.
    static void follow(QWidget *form);
    /// @p group owns it. @p aside, if any, is a button at the left of the group's last row that
    /// gets a row of its own when folded.
    explicit PairFold(QGroupBox *group, QAbstractButton *aside = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Place
    {
        QGridLayout *grid;
        QLayoutItem *item;
        int row, column, columns;
    };

    void collect(QGridLayout *grid);
    void arrange(bool folded);
    void keepLabelsWhole();
    void measureAnew();
    void fit();
    void fold(bool folded);

    QGroupBox *m_group;
    QAbstractButton *m_aside;
    QVector<QGridLayout *> m_grids;
    QVector<Place> m_places;
    bool m_folded = false;
};

} // namespace welmo
