#include "pendant/program/filespane.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>

namespace welmo::pendant {

namespace {

const QString examples = QStringLiteral(":/pendant/examples");
const QString suffix = QStringLiteral(".tl");
constexpr int pathRole = Qt::UserRole;

// @p text as a file's name within the folder; empty if it cannot be one.
QString fileNameOf(const QString &text)
{
    QString name = text.trimmed();
    if (name.isEmpty() || name.contains(QLatin1Char('/')) || name.startsWith(QLatin1Char('.')))
        return {};
    return name.endsWith(suffix) ? name : name + suffix;
}

} // namespace

FilesPane::FilesPane(const QString &folder, QWidget *parent)
    : QFrame(parent)
    , m_folder(folder)
    , m_heading(new QLabel(this))
    , m_files(new QListWidget(this))
    , m_name(new QLineEdit(this))
    , m_accept(new QPushButton(this))
{
    m_heading->setObjectName(QStringLiteral("lblCardHeading"));
    m_files->setObjectName(QStringLiteral("lstFiles"));
    m_name->setObjectName(QStringLiteral("ledtFileName"));
    m_accept->setObjectName(QStringLiteral("btnFileAccept"));
    auto *browse = new QPushButton(tr("Elsewhere…"), this);
    auto *cancel = new QPushButton(tr("Back"), this);
    cancel->setObjectName(QStringLiteral("btnFileCancel"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(browse);
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(m_accept);
    layout->addWidget(m_heading);
    layout->addWidget(m_name);
    layout->addWidget(m_files, 1);
    layout->addLayout(buttons);
    connect(m_files, &QListWidget::currentItemChanged, this, &FilesPane::refresh);
    connect(m_files, &QListWidget::itemDoubleClicked, this, &FilesPane::onAcceptClicked);
    m_name->setProperty("isName", true); // see FieldPads
    connect(m_name, &QLineEdit::textChanged, this, &FilesPane::refresh);
    connect(m_name, &QLineEdit::returnPressed, this, &FilesPane::onAcceptClicked);
    connect(m_accept, &QPushButton::clicked, this, &FilesPane::onAcceptClicked);
    connect(browse, &QPushButton::clicked, this, &FilesPane::browse);
    connect(cancel, &QPushButton::clicked, this, &FilesPane::closed);
}

void FilesPane::chooseToOpen()
{
    start(false, tr("Open a program"), tr("Open"));
    list(tr("Examples"), examples);
    refresh();
}

void FilesPane::chooseToSave(const QString &name)
{
    start(true, tr("Save the program as"), tr("Save"));
    m_name->setText(name);
    m_name->setFocus();
    m_name->selectAll();
    refresh();
}

void FilesPane::start(bool saves, const QString &heading, const QString &button)
{
    m_saves = saves;
    m_heading->setText(heading);
    m_accept->setText(button);
    m_name->setVisible(saves);
    m_files->clear();
    list(QDir::toNativeSeparators(m_folder), m_folder);
}

void FilesPane::list(const QString &heading, const QString &folder)
{
    const auto files = QDir(folder).entryInfoList({QLatin1Char('*') + suffix},
                                                  QDir::Files | QDir::Readable, QDir::Name);
    auto *title = new QListWidgetItem(
        files.isEmpty() ? tr("%1: no programs").arg(heading) : heading, m_files);
    title->setFlags(Qt::NoItemFlags);
    for (const QFileInfo &file : files) {
        QString text = file.fileName();
        if (const QDateTime time = file.lastModified(); folder != examples && time.isValid())
            text += QStringLiteral("    ") + time.toString(QStringLiteral("yyyy-MM-dd hh:mm"));
        auto *item = new QListWidgetItem(text, m_files);
        item->setData(pathRole, file.filePath());
    }
}

void FilesPane::refresh()
{
    const auto *item = m_files->currentItem();
    if (m_saves && item && m_files->hasFocus()) // the operator touched the list: that file is meant
        m_name->setText(QFileInfo(item->data(pathRole).toString()).fileName());
    m_accept->setEnabled(m_saves ? !fileNameOf(m_name->text()).isEmpty() : item != nullptr);
}

void FilesPane::onAcceptClicked()
{
    if (!m_accept->isEnabled())
        return;
    if (m_saves) {
        QDir().mkpath(m_folder); // if that fails, saving reports it
        save(QDir(m_folder).filePath(fileNameOf(m_name->text())));
    } else {
        emit openWanted(m_files->currentItem()->data(pathRole).toString());
    }
}

void FilesPane::save(const QString &file)
{
    if (QFile::exists(file))
        askToReplace(file);
    else
        emit saveWanted(file);
}

void FilesPane::askToReplace(const QString &file)
{
    auto *box =
        new QMessageBox(QMessageBox::Question, tr("Save"),
                        tr("There is a program %1 already.").arg(QFileInfo(file).fileName()),
                        QMessageBox::NoButton, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    auto *yes = box->addButton(tr("Replace it"), QMessageBox::AcceptRole);
    box->setEscapeButton(box->addButton(tr("Back"), QMessageBox::RejectRole));
    connect(yes, &QAbstractButton::clicked, this, [this, file] { emit saveWanted(file); });
    box->open();
}

void FilesPane::browse()
{
    auto *dialog = new QFileDialog(window(), m_heading->text(), m_folder,
                                   tr("Programs (*.tl);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    dialog->setAcceptMode(m_saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(m_saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setDefaultSuffix(suffix.mid(1));
    if (m_saves)
        dialog->selectFile(fileNameOf(m_name->text()));
    connect(dialog, &QFileDialog::fileSelected, this,
            m_saves ? &FilesPane::save : &FilesPane::openWanted);
    dialog->open();
}

} // namespace welmo::pendant
