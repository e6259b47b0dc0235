#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "book/records/limits.h"

class QDoubleSpinBox;
class QGridLayout;
class QLabel;

namespace welmo::book {

class Bookkeeper;

/// The limits of one welding file, to set by hand or to learn from good seams; they apply only once
/// they are saved.
class LimitsPanel : public QWidget
{
    Q_OBJECT
public:
    LimitsPanel(Bookkeeper *keeper, QWidget *parent);

    void edit(const QString &file);

signals:
    void done();

private:
    struct BandBoxes
    {
        const BandRow *row;
        QDoubleSpinBox *low;
        QDoubleSpinBox *high;
    };

    void addBand(QGridLayout *grid, const BandRow &row);
    QDoubleSpinBox *addBox(QGridLayout *grid, int row, int column, const QString &name);
    void addMasks(QGridLayout *grid);
    void addEfficiency(QGridLayout *grid);
    QWidget *makeButtons();
    void show(const Limits &limits);
    Limits shown() const;
    void learn();
    void propose(const std::optional<Limits> &limits, int good);
    void save();

    QPointer<Bookkeeper> m_keeper;
    QLabel *m_title;
    QLabel *m_origin;
    std::vector<BandBoxes> m_bands;
    QDoubleSpinBox *m_maskStart = nullptr;
    QDoubleSpinBox *m_maskEnd = nullptr;
    QDoubleSpinBox *m_efficiency = nullptr;
    QString m_file;
    int m_learntFrom = 0;
};

} // namespace welmo::book
