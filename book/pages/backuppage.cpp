#include "book/pages/backuppage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>

#include "book/keeper/bookkeeper.h"
#include "book/keeper/filewatch.h"
#include "book/pages/controls.h"
#include "book/pages/fieldwords.h"
#include "book/pages/words.h"
#include "schema/names.h"

namespace welmo::book {

namespace {

const QString suffix = QStringLiteral(".weldbackup");

QHBoxLayout *rowOf(QWidget *bar)
{
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    return row;
}

QPushButton *button(const QString &title, const char *name, QWidget *parent)
{
    auto *made = new QPushButton(title, parent);
    made->setObjectName(QString::fromLatin1(name));
    return made;
}

} // namespace

BackupPage::BackupPage(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_folder(new QLineEdit(this))
    , m_file(makeCombo(QStringLiteral("cbxBackup"), this))
    , m_otherCell(new QCheckBox(tr("Take one of another cell, too"), this))
    , m_state(makeLabel({}, "hint", this))
    , m_table(makeTable(QStringLiteral("tblRestore"), this))
    , m_model(new QStandardItemModel(this))
    , m_empty(makeLabel({}, "hint", this))
    , m_look(button(tr("See what differs"), "btnReadBackup", this))
    , m_all(button(tr("Tick all"), "btnTickAll", this))
    , m_none(button(tr("Tick none"), "btnTickNone", this))
    , m_restore(button(tr("Restore what is ticked"), "btnRestore", this))
{
    m_state->setObjectName(QStringLiteral("lblBackup"));
    m_state->setWordWrap(true);
    m_empty->setObjectName(QStringLiteral("lblNoDifferences"));
    m_empty->setAlignment(Qt::AlignCenter);
    makeItemTable();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(makeChoice());
    column->addWidget(m_state);
    column->addWidget(m_table, 1);
    column->addWidget(makeActions());
    showItems({});
    m_state->setText(tr("A backup holds all files and their releases, options, points, tools and "
                        "limits."));
}

// Both fields begin and end at the same place.
QGridLayout *BackupPage::makeChoice()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(8);
    grid->setColumnStretch(1, 1);
    m_folder->setObjectName(QStringLiteral("ledBackupFolder"));
    m_folder->setText(QDir::toNativeSeparators(
        QFileInfo(m_keeper->file()).dir().filePath(QStringLiteral("backups"))));
    m_otherCell->setObjectName(QStringLiteral("chbOtherCell"));
    QPushButton *make = button(tr("Make a backup"), "btnMakeBackup", this);
    grid->addWidget(makeLabel(tr("Folder"), "name", this), 0, 0);
    grid->addWidget(m_folder, 0, 1, 1, 2);
    grid->addWidget(make, 0, 3);
    grid->addWidget(makeLabel(tr("Backup"), "name", this), 1, 0);
    grid->addWidget(m_file, 1, 1);
    grid->addWidget(m_otherCell, 1, 2);
    grid->addWidget(m_look, 1, 3);
    connect(make, &QPushButton::clicked, this, &BackupPage::make);
    connect(m_look, &QPushButton::clicked, this, &BackupPage::look);
    connect(m_folder, &QLineEdit::editingFinished, this, [this] { listFiles(); });
    return grid;
}

void BackupPage::makeItemTable()
{
    m_table->setModel(m_model);
    m_table->setMinimumHeight(140);
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    auto *inside = new QVBoxLayout(m_table->viewport());
    inside->addWidget(m_empty);
    connect(m_table, &QTableView::clicked, this, [this](const QModelIndex &index) {
        QStandardItem *item = m_model->item(index.row());
        if (index.column() > 0) // a touch anywhere in the row checks it
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
}

QWidget *BackupPage::makeActions()
{
    auto *bar = new QWidget(this);
    QHBoxLayout *row = rowOf(bar);
    row->addWidget(m_all);
    row->addWidget(m_none);
    row->addStretch(1);
    row->addWidget(m_restore);
    connect(m_all, &QPushButton::clicked, this, [this] { tickAll(true); });
    connect(m_none, &QPushButton::clicked, this, [this] { tickAll(false); });
    connect(m_restore, &QPushButton::clicked, this, &BackupPage::restore);
    return bar;
}

void BackupPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    listFiles(m_file->currentText());
}

void BackupPage::listFiles(const QString &chosen)
{
    m_file->clear();
    m_file->addItems(
        QDir(m_folder->text()).entryList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Time));
    m_file->setCurrentIndex(qMax(0, m_file->findText(chosen)));
    const bool any = m_file->count() > 0;
    m_file->setEnabled(any);
    m_look->setEnabled(any);
    m_empty->setText(any ? tr("Choose a backup, and see what differs from it in the cell.")
                         : tr("There is no backup in this folder yet."));
}

void BackupPage::make()
{
    const QString name = QStringLiteral("cell-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")) + suffix;
    QString problem;
    const auto backup = collectBackup(m_keeper, &problem);
    if (!backup || !backup->save(QDir(m_folder->text()).filePath(name), &problem))
        return m_keeper->tellError(problem);
    listFiles(name);
    m_keeper->tellInfo(tr("backup written: %1").arg(name));
}

bool BackupPage::mayTake(const BackupFile &file)
{
    const bool other = !file.cell.isEmpty() && file.cell != m_keeper->cellName();
    if (other && !m_otherCell->isChecked())
        m_keeper->tellError(tr("%1 is of another cell").arg(m_file->currentText()));
    return !other || m_otherCell->isChecked();
}

void BackupPage::look()
{
    showItems({});
    QString problem;
    const auto file =
        BackupFile::load(QDir(m_folder->text()).filePath(m_file->currentText()), &problem);
    if (!file)
        return m_keeper->tellError(problem);
    if (!mayTake(*file))
        return;
    const auto items = differencesTo(*file, m_keeper, &problem);
    if (!items)
        return m_keeper->tellError(problem);
    showItems(*items);
    m_empty->setText(tr("Nothing differs: the cell is as it was in this backup."));
    m_state->setText(
        tr("Written %1. %2 places differ.").arg(Words::moment(file->written)).arg(items->size()));
}

void BackupPage::showItems(const QVector<RestoreItem> &items)
{
    m_items = items;
    m_model->clear();
    m_model->setHorizontalHeaderLabels({QString(), tr("Place"), tr("Now → in the backup")});
    for (const RestoreItem &item : items) {
        auto *tick = new QStandardItem;
        tick->setCheckable(true);
        tick->setCheckState(Qt::Checked);
        QList<QStandardItem *> row{tick, new QStandardItem(FieldWords::place(item.change)),
                                   new QStandardItem(FieldWords::changes(item))};
        for (QStandardItem *cell : row)
            cell->setEditable(false);
        m_model->appendRow(row);
    }
    m_table->setColumnWidth(0, 56);
    m_table->setColumnWidth(1, 250);
    m_table->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    for (QWidget *one : {m_all, m_none, m_restore})
        one->setEnabled(!items.isEmpty());
    m_empty->setVisible(items.isEmpty());
    m_state->clear();
}

void BackupPage::tickAll(bool on)
{
    for (int row = 0; row < m_model->rowCount(); ++row)
        m_model->item(row)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
}

QVector<RestoreItem> BackupPage::ticked() const
{
    QVector<RestoreItem> items;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->item(row)->checkState() == Qt::Checked)
            items.append(m_items.value(row));
    }
    return items;
}

void BackupPage::restore()
{
    const QVector<RestoreItem> items = ticked();
    QVector<CellChange> changes;
    for (const RestoreItem &item : items) {
        if (!item.change.node.isEmpty())
            changes.append(item.change);
    }
    if (items.isEmpty())
        return m_keeper->tellError(tr("nothing is ticked"));
    m_restore->setEnabled(false);
    const QPointer<BackupPage> page(this);
    const QString title = tr("%1 restored").arg(m_file->currentText());
    m_keeper->restorer().restore(m_keeper->cellName(), title, changes,
                                 [page, items, title](const QString &problem) {
                                     if (!page || !page->m_keeper)
                                         return;
                                     if (problem.isEmpty())
                                         page->takeLimits(items);
                                     page->showItems({});
                                     page->listFiles(page->m_file->currentText());
                                     problem.isEmpty() ? page->m_keeper->tellInfo(title)
                                                       : page->m_keeper->tellError(problem);
                                 });
}

void BackupPage::takeLimits(const QVector<RestoreItem> &items)
{
    for (const RestoreItem &item : items) {
        if (item.change.node.isEmpty())
            m_keeper->setLimits(item.limits);
    }
}

} // namespace welmo::book
