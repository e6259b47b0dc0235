#include "pendant/program/filekeeper.h"

#include <QDir>
#include <QMessageBox>
#include <QPushButton>

#include "pendant/program/actionbar.h"
#include "pendant/program/filespane.h"
#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"
#include "tessa/managerhelper.h"

namespace welmo::pendant {

FileKeeper::FileKeeper(ProgramDocument *document, ProgramRun *run, FilesPane *pane, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_run(run)
    , m_pane(pane)
{
    setObjectName(QStringLiteral("ProgramFiles"));
    connect(pane, &FilesPane::openWanted, this, &FileKeeper::open);
    connect(pane, &FilesPane::saveWanted, this, &FileKeeper::save);
    connect(pane, &FilesPane::closed, this, &FileKeeper::cancel);
    connect(document, &ProgramDocument::titleChanged, this, &FileKeeper::refresh);
    connect(run, &ProgramRun::changed, this, &FileKeeper::refresh);
}

void FileKeeper::addTo(ActionBar *bar, QWidget *page)
{
    const auto add = [&](const char *picture, const QString &text, const char *name,
                         QKeySequence::StandardKey key, void (FileKeeper::*slot)()) {
        return bar->addIcon(QLatin1String(picture), text, name, key, page, this, slot);
    };
    m_new = add("new", tr("New"), "NewProgram", QKeySequence::New, &FileKeeper::startNew);
    m_open = add("open", tr("Open"), "OpenProgram", QKeySequence::Open, &FileKeeper::startOpen);
    m_save = add("save", tr("Save"), "SaveProgram", QKeySequence::Save, &FileKeeper::startSave);
    add("save_as", tr("Save as"), "SaveProgramAs", QKeySequence::SaveAs, &FileKeeper::startSaveAs);
    refresh();
}

void FileKeeper::refresh()
{
    m_new->setEnabled(!m_run->isUnderWay());
    m_open->setEnabled(!m_run->isUnderWay());
    m_save->setEnabled(m_document->isModified() || m_document->fileName().isEmpty());
}

void FileKeeper::startNew()
{
    const auto clear = [this] { m_document->clear(); };
    if (mayGo(clear))
        clear();
}

void FileKeeper::startOpen()
{
    const auto choose = [this] {
        m_pane->chooseToOpen();
        emit paneWanted();
    };
    if (mayGo(choose))
        choose();
}

void FileKeeper::startSave()
{
    if (m_document->fileName().isEmpty())
        startSaveAs();
    else if (m_document->isChangedElsewhere())
        askToReplace();
    else
        save(m_document->fileName());
}

void FileKeeper::startSaveAs()
{
    m_pane->chooseToSave(m_document->title());
    emit paneWanted();
}

void FileKeeper::open(const QString &file)
{
    QString problem;
    if (!m_document->open(file, &problem))
        return complain(file, problem);
    emit done();
}

void FileKeeper::openExample(const QString &name)
{
    open(QStringLiteral(":/pendant/examples/") + name);
}

void FileKeeper::save(const QString &file)
{
    QString problem;
    if (!m_document->save(file, &problem))
        return complain(file, problem);
    tessa::ManagerHelper::instance()->throwLog(this, QStringLiteral("info"),
                                               tr("%1 saved").arg(QDir::toNativeSeparators(file)));
    emit done();
    if (const auto goOn = std::exchange(m_goOn, nullptr))
        goOn();
}

void FileKeeper::cancel()
{
    m_goOn = nullptr;
    emit done();
}

void FileKeeper::complain(const QString &file, const QString &problem)
{
    tessa::ManagerHelper::instance()->throwLog(
        this, QStringLiteral("error"),
        QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), problem));
}

bool FileKeeper::mayGo(const std::function<void()> &goOn)
{
    if (!m_document->isModified())
        return true;
    m_goOn = goOn;
    if (!m_question)
        ask();
    return false;
}

QMessageBox *FileKeeper::newQuestion(const QString &text)
{
    m_question = new QMessageBox(QMessageBox::Question, tr("Program"), text, QMessageBox::NoButton,
                                 m_pane->window());
    m_question->setAttribute(Qt::WA_DeleteOnClose);
    m_question->setTextFormat(Qt::PlainText);
    connect(m_question, &QMessageBox::rejected, this, [this] { m_goOn = nullptr; });
    return m_question;
}

void FileKeeper::ask()
{
    auto *box = newQuestion(tr("%1 has changes that are not saved.").arg(m_document->title()));
    auto *save = box->addButton(tr("Save"), QMessageBox::AcceptRole);
    auto *drop = box->addButton(tr("Drop the changes"), QMessageBox::DestructiveRole);
    box->setEscapeButton(box->addButton(tr("Back"), QMessageBox::RejectRole));
    box->setDefaultButton(save);
    save->setObjectName(QStringLiteral("btnSaveChanges"));
    drop->setObjectName(QStringLiteral("btnDropChanges"));
    connect(save, &QAbstractButton::clicked, this, &FileKeeper::startSave);
    connect(drop, &QAbstractButton::clicked, this, &FileKeeper::discard);
    box->open();
}

void FileKeeper::askToReplace()
{
    auto *box = newQuestion(
        tr("%1 was changed by somebody else since it was opened here.").arg(m_document->title()));
    auto *other = box->addButton(tr("Save as"), QMessageBox::AcceptRole);
    auto *replace = box->addButton(tr("Replace it"), QMessageBox::DestructiveRole);
    auto *back = box->addButton(tr("Back"), QMessageBox::RejectRole);
    box->setEscapeButton(back);
    box->setDefaultButton(back);
    connect(other, &QAbstractButton::clicked, this, &FileKeeper::startSaveAs);
    connect(replace, &QAbstractButton::clicked, this, [this] { save(m_document->fileName()); });
    box->open();
}

// The changes stay in the program until another one replaces it.
void FileKeeper::discard()
{
    m_document->undoStack()->setClean();
    if (const auto goOn = std::exchange(m_goOn, nullptr))
        goOn();
}

} // namespace welmo::pendant
