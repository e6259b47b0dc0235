#pragma once

#include <QFrame>

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace welmo::pendant {

class ActionBar;
class LineList;
class ProgramCheck;
class ProgramDocument;
class ProgramRun;

/// The lines with what can be done to them, and what is wrong with the chosen one. While the
/// controller goes through a program nothing can be changed.
class LinesPane : public QFrame
{
    Q_OBJECT
public:
    LinesPane(ProgramDocument *document, ProgramCheck *check, ProgramRun *run, QWidget *parent);

    int line() const;
    void setLine(int line);
    /// What can be done to the lines, for the page's row of tools.
    ActionBar *bar() const { return m_bar; }
    /// How many findings there are, and the way to the next; for the page.
    QPushButton *findings() const { return m_findings; }

signals:
    /// A form is wanted that inserts the instruction before @p line; an empty word is a text line.
    void insertWanted(const QString &word, int line);
    void editWanted(int line);

private:
    ActionBar *makeBar();
    void fillMenu();
    void openMenu();
    void edit();
    void remove();
    void moveUp() { move(-1); }
    void moveDown() { move(1); }
    void move(int step);
    void undo();
    void redo();
    void showNextFinding();
    void followRun();
    void refresh();
    void showDetail();
    void refreshFindings();

    ProgramDocument *m_document;
    ProgramCheck *m_check;
    ProgramRun *m_run;
    LineList *m_list;
    QMenu *m_menu;
    QLabel *m_detail = nullptr;
    QPushButton *m_findings = nullptr;
    QAction *m_insert = nullptr;
    QAction *m_edit = nullptr;
    QAction *m_remove = nullptr;
    QAction *m_up = nullptr;
    QAction *m_down = nullptr;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    ActionBar *m_bar; // last: what makes it sets the actions
};

} // namespace welmo::pendant
