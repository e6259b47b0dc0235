#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "book/records/course.h"

class QLabel;

namespace welmo::book {

class Bookkeeper;
class CoursePlot;

/// The running weld as a strip: the last minute of the actual values, with the present limits.
class TrendPage : public QWidget
{
    Q_OBJECT
public:
    TrendPage(Bookkeeper *keeper, QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void sample();
    void draw();

    QPointer<Bookkeeper> m_keeper;
    QLabel *m_head;
    CoursePlot *m_plot;
    QTimer m_pace;
    Samples m_strip;
};

} // namespace welmo::book
