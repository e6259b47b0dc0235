#pragma once

#include <QObject>
#include <QVector>

class QAbstractButton;
class QGridLayout;
class QGroupBox;
class QLayoutItem;

namespace welmo {

/// Gives the grids of a group the same columns as everywhere, and folds them where the group has
/// less room than they need. Such a grid has pairs side by side, each a label, a field and a unit
/// in three columns, with one column between; folded, the second pair stands below the first.
class PairFold : public QObject
{
public:
    /// For every group below @p form, as its generated form made it; each goes with its group.
    static void follow(QWidget *form);
    /// Lives with @p group. @p aside, if any, is a button at the left of the group's last row that
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
