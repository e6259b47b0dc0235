#include "book/pages/filespage.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include "book/keeper/bookkeeper.h"
#include "book/keeper/filedefaults.h"
#include "book/keeper/filewatch.h"
#include "book/pages/controls.h"
#include "book/pages/fieldwords.h"
#include "book/pages/filecard.h"
#include "book/pages/filemodel.h"
#include "book/pages/words.h"
#include "book/records/filecontent.h"
#include "schema/filesets.h"

namespace welmo::book {

namespace {

enum Which { AllFiles, UsedFiles, UnusedFiles };

const QString nameKey = QStringLiteral("name");

struct Answer
{
    ProgramUses uses;
    QHash<QString, int> welds;
};

CellChange write(const QString &file, QVariantMap content)
{
    content.insert(nameKey, file);
    return {schema::setOfFile(file)->node(), file, content};
}

} // namespace

FilesPage::FilesPage(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_set(makeCombo(QStringLiteral("cbxSet"), this))
    , m_which(makeCombo(QStringLiteral("cbxWhich"), this))
    , m_count(makeLabel({}, "hint", this))
    , m_table(makeTable(QStringLiteral("tblFiles"), this))
    , m_model(new FileModel(this))
    , m_card(new FileCard(keeper, this))
    , m_target(makeCombo(QStringLiteral("cbxCopyTarget"), this))
    , m_last(makeLabel({}, "hint", this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(makeFilters());
    makeFileTable();
    column->addWidget(m_table, 3);
    column->addWidget(m_card, 2);
    column->addWidget(makeActions());
    connect(m_card, &FileCard::versionChosen, this, &FilesPage::updateActions);
    connect(&keeper->files(), &FileWatch::changed, this, [this] {
        if (isVisible())
            reload();
    });
    connect(&keeper->releases(), &Releases::changed, m_card, &FileCard::showRelease);
    connect(&keeper->cell(), &CellWriter::stepsChanged, this, &FilesPage::updateActions);
    updateActions();
}

QWidget *FilesPage::makeFilters()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    m_set->addItem(tr("All sets"), QString());
    for (const schema::FileSet *set : schema::fileSets())
        m_set->addItem(FieldWords::set(*set), set->name);
    m_which->addItem(tr("All files"), AllFiles);
    m_which->addItem(tr("Used by programs"), UsedFiles);
    m_which->addItem(tr("Not used"), UnusedFiles);
    for (QComboBox *combo : {m_set, m_which}) {
        row->addWidget(combo, 1);
        connect(combo, QOverload<int>::of(&QComboBox::activated), this, &FilesPage::showRows);
    }
    row->addStretch(1);
    row->addWidget(m_count);
    return bar;
}

void FilesPage::makeFileTable()
{
    m_table->setModel(m_model);
    m_table->setMinimumHeight(150);
    const int widths[FileModel::ColumnCount] = {122, 0, 204, 120, 136, 116, 72};
    for (int i = 0; i < FileModel::ColumnCount; ++i)
        m_table->setColumnWidth(i, widths[i]);
    m_table->horizontalHeader()->setSectionResizeMode(FileModel::Annotation, QHeaderView::Stretch);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FilesPage::onChosen);
}

QWidget *FilesPage::makeActions()
{
    auto *bar = new ButtonBar(this);
    m_copy = bar->add(tr("Copy to"), "btnCopyFile", this, &FilesPage::copy);
    bar->add(m_target);
    m_back = bar->add(tr("Restore"), "btnBackToVersion", this, &FilesPage::goBack);
    m_defaults = bar->add(tr("Defaults"), "btnFileDefaults", this, &FilesPage::useDefaults);
    m_remove = bar->add(tr("Remove"), "btnRemoveFile", this, &FilesPage::remove);
    m_release = bar->add(tr("Release"), "btnReleaseFile", this, &FilesPage::release);
    m_last->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_last->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar->add(m_last, 1);
    m_undo = bar->add(tr("Undo"), "btnUndoFiles", this, &FilesPage::undo);
    return bar;
}

void FilesPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitColumns(this, m_table, {FileModel::Changed, FileModel::By});
}

void FilesPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    reload();
}

void FilesPage::reload()
{
    if (!m_keeper)
        return;
    showRows();
    m_keeper->ask(
        this,
        [folder = m_keeper->programsFolder()](SeamBook &book) {
            return Answer{readProgramUses(folder), FileHistory(book.database()).welds()};
        },
        [this](const Answer &answer) {
            m_uses = answer.uses;
            m_welds = answer.welds;
            showRows();
        });
}

void FilesPage::showRows()
{
    if (!m_keeper)
        return;
    const QString chosen = file();
    const QString wanted = m_set->currentData().toString();
    const auto which = static_cast<Which>(m_which->currentData().toInt());
    const FileWatch &watch = m_keeper->files();
    QVector<FileModel::Row> rows;
    for (const schema::FileSet *set : schema::fileSets()) {
        if (!wanted.isEmpty() && wanted != set->name)
            continue;
        for (const QString &name : set->fileNames()) {
            const bool used = m_uses.contains(name);
            if (watch.files().contains(name) && (which == AllFiles || used == (which == UsedFiles)))
                rows.append({name, watch.files().value(name), watch.newest(name),
                             usesText(m_uses.value(name)), m_welds.value(name)});
        }
    }
    m_model->setRows(rows);
    m_count->setText(tr("%1 files").arg(rows.size()));
    for (int i = 0; i < rows.size(); ++i) {
        if (rows[i].file == chosen)
            m_table->selectRow(i);
    }
    if (rows.isEmpty() || file().isEmpty())
        onChosen();
}

QString FilesPage::file() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? QString() : m_model->rows().value(rows.first().row()).file;
}

void FilesPage::onChosen()
{
    const QString now = file();
    m_card->showFile(now);
    if (now != m_shown) {
        m_target->clear();
        if (const schema::FileSet *set = schema::setOfFile(now))
            m_target->addItems(set->fileNames());
        m_shown = now;
    }
    updateActions();
}

void FilesPage::updateActions()
{
    const schema::FileSet *set = schema::setOfFile(file());
    for (QWidget *one : {static_cast<QWidget *>(m_copy), static_cast<QWidget *>(m_target),
                         static_cast<QWidget *>(m_defaults), static_cast<QWidget *>(m_release)})
        one->setEnabled(set);
    m_remove->setEnabled(set && set->isRemovable);
    m_back->setEnabled(set && m_card->chosen().exists()
                       && m_card->chosen().number != m_keeper->files().version(file()));
    const QString last = m_keeper ? m_keeper->cell().undoTitle() : QString();
    m_undo->setEnabled(!last.isEmpty());
    m_last->setText(last);
}

void FilesPage::carryOut(const QString &title, const CellChange &change)
{
    QString problem;
    if (m_keeper->cell().apply(title, {change}, &problem))
        m_keeper->tellInfo(title);
    else
        m_keeper->tellError(problem);
}

void FilesPage::copy()
{
    const QString from = file();
    const QString to = m_target->currentText();
    if (from.isEmpty() || from == to)
        return m_keeper->tellError(tr("%1 cannot be copied to itself").arg(from));
    carryOut(tr("%1 copied to %2").arg(from, to),
             write(to, m_keeper->files().files().value(from).toMap()));
}

void FilesPage::goBack()
{
    const FileVersion version = m_card->chosen();
    if (version.exists())
        carryOut(tr("%1 back to version %2").arg(version.file).arg(version.number),
                 write(version.file, contentFromJson(version.content).toMap()));
}

void FilesPage::useDefaults()
{
    const QString name = file();
    if (const schema::FileSet *set = schema::setOfFile(name))
        carryOut(tr("%1 set to the defaults").arg(name), write(name, defaultContent(*set, name)));
}

// The programs are read again now, since one may have been saved meanwhile.
void FilesPage::remove()
{
    m_keeper->ask(
        this, [folder = m_keeper->programsFolder()](SeamBook &) { return readProgramUses(folder); },
        [this, name = file()](const ProgramUses &uses) {
            m_uses = uses;
            removeUnlessUsed(name);
        });
}

void FilesPage::removeUnlessUsed(const QString &name)
{
    const QVector<ProgramUse> uses = m_uses.value(name);
    if (!uses.isEmpty())
        m_keeper->tellError(tr("%1 stays, programs use it: %2").arg(name, usesText(uses)));
    else if (const schema::FileSet *set = schema::setOfFile(name))
        carryOut(tr("%1 removed").arg(name), {set->node(), name, {}});
}

void FilesPage::release()
{
    emit releaseWanted(file());
}

void FilesPage::undo()
{
    const QString title = m_keeper->cell().undoTitle();
    QString problem;
    if (m_keeper->cell().undo(&problem))
        m_keeper->tellInfo(tr("taken back: %1").arg(title));
    else
        m_keeper->tellError(problem);
}

} // namespace welmo::book
