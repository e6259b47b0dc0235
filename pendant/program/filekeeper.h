#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

class QAction;
class QMessageBox;

namespace welmo::pendant {

class ActionBar;
class FilesPane;
class ProgramDocument;
class ProgramRun;

/// Opens and keeps the program's file, and lets no change be lost without a question.
class FileKeeper : public QObject
{
    Q_OBJECT
public:
    FileKeeper(ProgramDocument *document, ProgramRun *run, FilesPane *pane, QObject *parent);

    /// Adds the buttons for it; @p page is where their keys work.
    void addTo(ActionBar *bar, QWidget *page);
    /// True when nothing would be lost. Otherwise asks the operator, and calls @p goOn once there
    /// is nothing to lose any more.
    bool mayGo(const std::function<void()> &goOn);
    /// Opens a program that came with the pendant; what was changed before is lost.
    void openExample(const QString &name);

signals:
    void paneWanted();
    /// The pane is not needed any more.
    void done();

private:
    void startNew();
    void startOpen();
    void startSave();
    void startSaveAs();
    void open(const QString &file);
    void save(const QString &file);
    void cancel();
    QMessageBox *newQuestion(const QString &text);
    void ask();
    void askToReplace();
    void discard();
    void refresh();
    void complain(const QString &file, const QString &problem);

    ProgramDocument *m_document;
    ProgramRun *m_run;
    FilesPane *m_pane;
    QAction *m_new = nullptr;
    QAction *m_open = nullptr;
    QAction *m_save = nullptr;
    std::function<void()> m_goOn; // once the program is saved
    QPointer<QMessageBox> m_question;
};

} // namespace welmo::pendant
