#include "book/pages/filecard.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QStandardItemModel>
#include <QTableView>
#include <algorithm>

#include "book/keeper/bookkeeper.h"
#include "book/keeper/filewatch.h"
#include "book/pages/controls.h"
#include "book/pages/fieldwords.h"
#include "book/pages/releasepanel.h"
#include "book/pages/words.h"
#include "book/records/filecontent.h"
#include "schema/filesets.h"

namespace welmo::book {

namespace {

constexpr int valueWidth = 128;

enum HistoryColumn { Number, When, By, What };

void addRow(QStandardItemModel *model, const QStringList &texts)
{
    QList<QStandardItem *> items;
    for (const QString &text : texts) {
        items.append(new QStandardItem(text));
        items.last()->setEditable(false);
    }
    model->appendRow(items);
}

} // namespace

FileCard::FileCard(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_release(makeLabel({}, "value", this))
    , m_history(makeTable(QStringLiteral("tblVersions"), this))
    , m_historyModel(new QStandardItemModel(this))
    , m_with(makeCombo(QStringLiteral("cbxCompareWith"), this))
    , m_same(makeLabel({}, "hint", this))
    , m_differences(makeTable(QStringLiteral("tblDifferences"), this))
    , m_differencesModel(new QStandardItemModel(this))
{
    makeHistory();
    m_differences->setModel(m_differencesModel);
    m_differences->setSelectionMode(QAbstractItemView::NoSelection);
    m_differences->setFocusPolicy(Qt::NoFocus);
    m_same->setObjectName(QStringLiteral("lblSame"));
    auto *head = new QHBoxLayout;
    head->addWidget(makeLabel(tr("Compare with"), "name", this));
    head->addWidget(m_with, 1);
    head->addWidget(m_same);
    auto *right = new QVBoxLayout;
    right->addLayout(head);
    right->addWidget(m_differences, 1);
    m_release->setObjectName(QStringLiteral("lblRelease"));
    m_release->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(m_history, 6);
    row->addLayout(right, 5);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(m_release);
    column->addLayout(row, 1);
    connect(m_with, QOverload<int>::of(&QComboBox::activated), this, &FileCard::compare);
}

void FileCard::makeHistory()
{
    m_historyModel->setHorizontalHeaderLabels(
        {tr("No."), tr("When"), tr("By"), tr("What changed")});
    m_history->setModel(m_historyModel);
    const int widths[] = {46, 120, 136};
    for (int i = 0; i < What; ++i)
        m_history->setColumnWidth(i, widths[i]);
    m_history->horizontalHeader()->setSectionResizeMode(What, QHeaderView::Stretch);
    connect(m_history->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        compare();
        emit versionChosen();
    });
}

void FileCard::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitColumns(this, m_history, {By});
}

void FileCard::showFile(const QString &file)
{
    m_file = file;
    fillOthers();
    if (!m_keeper || file.isEmpty()) {
        showVersions({});
        return;
    }
    m_keeper->ask(
        this, [file](SeamBook &book) { return FileHistory(book.database()).versions(file); },
        [this, file](const QVector<FileVersion> &versions) {
            if (m_file == file)
                showVersions(versions);
        });
}

void FileCard::showVersions(const QVector<FileVersion> &versions)
{
    // If the newest version was chosen, choose the newest again.
    const bool newest = chosen().number == m_versions.value(0).number;
    const qint64 before = chosen().file == m_file && !newest ? chosen().number : 0;
    m_versions = versions;
    int row = 0;
    m_historyModel->removeRows(0, m_historyModel->rowCount());
    for (int i = 0; i < versions.size(); ++i) {
        row = versions[i].number == before ? i : row;
        addRow(m_historyModel,
               {QString::number(versions[i].number), Words::moment(versions[i].time),
                Words::user(versions[i].user), changesText(versions[i], versions.value(i + 1))});
    }
    showRelease();
    if (!versions.isEmpty())
        m_history->selectRow(row);
    else
        compare();
}

void FileCard::showRelease()
{
    const schema::FileSet *set = schema::setOfFile(m_file);
    if (!m_keeper || !set)
        return m_release->clear();
    const schema::Release release = m_keeper->releases().of(m_file);
    const auto version =
        std::find_if(m_versions.begin(), m_versions.end(), [&](const FileVersion &one) {
            return differences(contentFromJson(one.content), release.content).isEmpty();
        });
    if (!release.exists())
        m_release->setText(tr("Not released"));
    else if (version == m_versions.end())
        m_release->setText(
            tr("A version that the book does not have, %1").arg(releaseText(*set, release)));
    else
        m_release->setText(
            tr("Version %1, %2").arg(version->number).arg(releaseText(*set, release)));
}

QString FileCard::changesText(const FileVersion &version, const FileVersion &before) const
{
    if (!version.exists())
        return tr("removed");
    if (!before.exists())
        return before.number ? tr("made again") : tr("as found");
    return FieldWords::changes(*schema::setOfFile(version.file), contentFromJson(before.content),
                               contentFromJson(version.content));
}

// Keeps the choice if it fits the file.
void FileCard::fillOthers()
{
    const QVariant wanted = m_with->currentData();
    m_with->clear();
    m_with->addItem(tr("the version before"), QString());
    m_with->addItem(tr("the file as it is now"), m_file);
    const schema::FileSet *set = schema::setOfFile(m_file);
    if (m_keeper && set) {
        for (const QString &file : set->fileNames()) {
            if (file != m_file && m_keeper->files().files().contains(file))
                m_with->addItem(file, file);
        }
    }
    m_with->setCurrentIndex(qMax(0, m_with->findData(wanted)));
}

FileVersion FileCard::chosen() const
{
    const QModelIndexList rows = m_history->selectionModel()->selectedRows();
    return rows.isEmpty() ? FileVersion{} : m_versions.value(rows.first().row());
}

void FileCard::compare()
{
    const FileVersion left = chosen();
    const QString with = m_with->currentData().toString();
    if (!left.number || !m_keeper) {
        m_differencesModel->clear();
        m_same->clear();
    } else if (with.isEmpty()) {
        const QModelIndexList rows = m_history->selectionModel()->selectedRows();
        const FileVersion before = m_versions.value(rows.first().row() + 1);
        showDifferences(left, before,
                        before.number ? tr("version %1").arg(before.number) : QString());
    } else {
        const FileVersion other{with, 0, 0, {}, contentJson(m_keeper->files().files().value(with))};
        showDifferences(left, other, with == m_file ? tr("now") : with);
    }
}

void FileCard::showDifferences(const FileVersion &left, const FileVersion &right,
                               const QString &title)
{
    const QVariant here = contentFromJson(left.content);
    const QVariant there = contentFromJson(right.content);
    const schema::FileSet &set = *schema::setOfFile(left.file);
    m_differencesModel->clear();
    m_differencesModel->setHorizontalHeaderLabels(
        {tr("Value"), tr("version %1").arg(left.number), title});
    const bool comparable = left.exists() && right.exists();
    const QVector<Difference> all = comparable ? differences(here, there) : QVector<Difference>();
    for (const Difference &one : all)
        addRow(m_differencesModel,
               {FieldWords::title(one.key), FieldWords::value(set, one.key, one.before, here),
                FieldWords::value(set, one.key, one.after, there)});
    m_same->setText(!comparable         ? tr("nothing to compare")
                        : all.isEmpty() ? tr("no difference")
                                        : QString());
    m_differences->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int i = 1; i < 3; ++i)
        m_differences->setColumnWidth(i, valueWidth);
}

} // namespace welmo::book
