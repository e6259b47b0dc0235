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

/// Opens and saves the program's file, and asks before changes are lost.
class FileKeeper : public QObject
{
    Q_OBJECT
public:
    FileKeeper(ProgramDocument *document, ProgramRun *run, FilesPane *pane, QObject *parent);

    /// Adds its buttons; their shortcuts work on @p page.
    void addTo(ActionBar *bar, QWidget *page);
    /// True if no change would be lost. Otherwise asks the operator, and calls @p goOn once the
    /// changes are saved or discarded.
    bool mayGo(const std::function<void()> &goOn);
    /// Opens an example that came with the pendant; unsaved changes are lost.
    void openExample(const QString &name);

signals:
    void paneWanted();
    /// The pane can be closed.
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
    std::function<void()> m_goOn; // called once the program is saved
    QPointer<QMessageBox> m_question;
};

} // namespace welmo::pendant
