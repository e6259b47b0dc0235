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

/// The lines, the actions on them, and the findings of the chosen one. While the controller runs a
/// program nothing can be changed.
class LinesPane : public QFrame
{
    Q_OBJECT
public:
    LinesPane(ProgramDocument *document, ProgramCheck *check, ProgramRun *run, QWidget *parent);

    int line() const;
    void setLine(int line);
    /// The buttons of these actions, for the page's tool row.
    ActionBar *bar() const { return m_bar; }
    /// The button with the number of findings, which leads to the next one; for the page.
    QPushButton *findings() const { return m_findings; }

signals:
    /// A form to insert the instruction before @p line is to be opened; an empty word is a text
    /// line.
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
    ActionBar *m_bar; // the last one: its making sets the actions
};

} // namespace welmo::pendant
