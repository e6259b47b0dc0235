#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "book/records/course.h"
#include "book/records/limits.h"

class QGridLayout;
class QLabel;

namespace welmo::book {

class CoursePlot;

/// All of one record: verdict and reasons, set values and results, and the course.
class SeamCard : public QWidget
{
    Q_OBJECT
public:
    explicit SeamCard(QWidget *parent = nullptr);

    void showSeam(const Seam &seam, const Course &course, const Limits &limits);
    /// Draws another seam's course over this one's; an empty one removes it.
    void showOver(const Course &course, const QString &which);
    void clear();

private:
    void open(bool opened);
    QWidget *makeFacts();
    void addFact(const QString &title, const std::function<QString(const Seam &)> &text);
    void addValueRow(const QString &title, int decimals, const QString &unit,
                     std::optional<double> Seam::*set, Spread Seam::*actual);

    struct Fact
    {
        QLabel *label;
        std::function<QString(const Seam &)> text;
    };

    QLabel *m_verdict;
    QLabel *m_reason;
    QLabel *m_over;
    QGridLayout *m_values = nullptr;
    QGridLayout *m_grid = nullptr;
    QWidget *m_body; // all but the first line
    CoursePlot *m_plot;
    std::vector<Fact> m_facts;
};

} // namespace welmo::book
