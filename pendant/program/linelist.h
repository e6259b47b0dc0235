#pragma once

#include <QListView>

namespace welmo::pendant {

class ProgramCheck;
class ProgramDocument;
class ProgramRun;

/// The program's lines with numbers, marks for findings, and a mark where the controller is.
class LineList : public QListView
{
    Q_OBJECT
public:
    LineList(ProgramDocument *document, const ProgramCheck *check, const ProgramRun *run,
             QWidget *parent = nullptr);

    /// The chosen line, -1 if there is none.
    int line() const { return currentIndex().row(); }
    /// Chooses the line and scrolls to it; the nearest one if there is no such line.
    void setLine(int line);

signals:
    void lineChanged();
    void editWanted();

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
};

} // namespace welmo::pendant
