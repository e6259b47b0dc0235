#include "book/pages/weldspage.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "book/keeper/bookkeeper.h"
#include "book/pages/controls.h"
#include "book/pages/seamcard.h"
#include "book/pages/seammodel.h"
#include "book/pages/words.h"

namespace welmo::book {

namespace {

constexpr int mostShown = 500;
constexpr int rowHeight = 45;

struct Answer
{
    QVector<Seam> seams;
    int count = 0;
    QStringList programs;
    QStringList files;
};

qint64 startOfDay(int daysAgo)
{
    return QDate::currentDate().addDays(-daysAgo).startOfDay().toMSecsSinceEpoch();
}

} // namespace

WeldsPage::WeldsPage(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_count(makeLabel({}, "hint", this))
    , m_table(makeTable(QStringLiteral("tblWelds"), this))
    , m_model(new SeamModel(this))
    , m_card(new SeamCard(this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(makeFilters());
    setUpTable();
    column->addWidget(m_table, 2);
    column->addWidget(m_card, 4);
    column->addWidget(makeActions());
    connect(keeper, &Bookkeeper::recordsChanged, this, &WeldsPage::reload);
    connect(keeper, &Bookkeeper::limitsChanged, this, &WeldsPage::onChosen);
    reload();
}

QWidget *WeldsPage::makeFilters()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    m_day = makeFilter(QStringLiteral("cbxDay"));
    m_day->addItem(tr("Today"), 0);
    m_day->addItem(tr("Since yesterday"), 1);
    m_day->addItem(tr("7 days"), 6);
    m_day->addItem(tr("All days"), -1);
    m_program = makeFilter(QStringLiteral("cbxProgram"));
    m_file = makeFilter(QStringLiteral("cbxFile"));
    m_verdict = makeFilter(QStringLiteral("cbxVerdict"));
    m_verdict->addItem(tr("All verdicts"), -1);
    for (const Verdict verdict : {Verdict::Red, Verdict::Amber, Verdict::Green, Verdict::None})
        m_verdict->addItem(Words::verdict(verdict), static_cast<int>(verdict));
    fill(m_program, tr("All programs"), {});
    fill(m_file, tr("All files"), {});
    for (QComboBox *combo : {m_day, m_program, m_file, m_verdict})
        row->addWidget(combo, 1);
    row->addWidget(m_count);
    return bar;
}

QComboBox *WeldsPage::makeFilter(const QString &name)
{
    QComboBox *combo = makeCombo(name, this);
    connect(combo, QOverload<int>::of(&QComboBox::activated), this, &WeldsPage::reload);
    return combo;
}

void WeldsPage::setUpTable()
{
    m_table->setModel(m_model);
    m_table->setMinimumHeight(3 * rowHeight);
    m_table->horizontalHeader()->setSectionResizeMode(SeamModel::Place, QHeaderView::Stretch);
    const int widths[SeamModel::ColumnCount] = {46, 165, 0, 110, 90, 90, 100, 80};
    for (int i = 0; i < SeamModel::ColumnCount; ++i)
        m_table->setColumnWidth(i, widths[i]);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &WeldsPage::onChosen);
}

QWidget *WeldsPage::makeActions()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    m_compare = new QPushButton(tr("Lay another over it"), bar);
    m_compare->setObjectName(QStringLiteral("btnCompareSeams"));
    m_compare->setCheckable(true);
    m_limits = new QPushButton(tr("Limits"), bar);
    m_limits->setObjectName(QStringLiteral("btnLimits"));
    row->addWidget(m_compare);
    auto *report = new QPushButton(tr("Export"), bar);
    report->setObjectName(QStringLiteral("btnExport"));
    report->setMenu(makeExportMenu());
    row->addStretch(1);
    row->addWidget(report);
    row->addWidget(m_limits);
    connect(m_compare, &QPushButton::toggled, this, &WeldsPage::compare);
    connect(m_limits, &QPushButton::clicked, this, [this] {
        if (m_chosen)
            emit limitsWanted(m_chosen->weldFile);
    });
    return bar;
}

QMenu *WeldsPage::makeExportMenu()
{
    auto *menu = new QMenu(this);
    const auto add = [&](const QString &text, ReportKind kind) {
        return menu->addAction(text, this, [this, kind] { exportAs(kind); });
    };
    add(tr("This list as CSV"), ReportKind::Csv);
    add(tr("This list as JSON, with courses"), ReportKind::Json);
    m_ofOne = {add(tr("This weld as PDF"), ReportKind::SeamPdf),
               add(tr("Its day as PDF"), ReportKind::DayPdf)};
    return menu;
}

void WeldsPage::exportAs(ReportKind kind)
{
    if (!m_keeper)
        return;
    const QDir book = QFileInfo(m_keeper->file()).dir();
    const ReportWish wish{kind, filter(), m_chosen.value_or(Seam()),
                          book.filePath(QStringLiteral("reports"))};
    m_keeper->ask(
        this, [wish](SeamBook &records) { return writeReport(records, wish); },
        [this](const ReportFile &file) {
            const QString name = QDir::toNativeSeparators(file.name);
            file.problem.isEmpty()
                ? m_keeper->tellInfo(tr("written: %1").arg(name))
                : m_keeper->tellError(tr("%1 was not written: %2").arg(name, file.problem));
        });
}

Filter WeldsPage::filter() const
{
    Filter filter;
    const int days = m_day->currentData().toInt();
    if (days >= 0)
        filter.from = startOfDay(days);
    filter.program = m_program->currentData().toString();
    filter.file = m_file->currentData().toString();
    if (const int verdict = m_verdict->currentData().toInt(); verdict >= 0)
        filter.verdict = static_cast<Verdict>(verdict);
    return filter;
}

void WeldsPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitColumns(this, m_table, {SeamModel::Voltage, SeamModel::Length});
}

void WeldsPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    reload();
}

void WeldsPage::reload()
{
    if (!m_keeper)
        return;
    const Filter wanted = filter();
    m_keeper->ask(
        this,
        [wanted](SeamBook &book) {
            return Answer{book.list(wanted, mostShown), book.count(wanted), book.programs(),
                          book.files()};
        },
        [this](const Answer &answer) {
            fill(m_program, tr("All programs"), answer.programs);
            fill(m_file, tr("All files"), answer.files);
            showList(answer.seams, answer.count);
        });
}

void WeldsPage::fill(QComboBox *combo, const QString &all, const QStringList &names)
{
    if (combo->count() == names.size() + 1)
        return;
    const QString chosen = combo->currentData().toString();
    combo->clear();
    combo->addItem(all, QString());
    for (const QString &name : names)
        combo->addItem(name, name);
    combo->setCurrentIndex(qMax(0, combo->findData(chosen)));
}

void WeldsPage::showList(const QVector<Seam> &seams, int count)
{
    const qint64 chosen = m_chosen ? m_chosen->id : 0;
    m_model->setSeams(seams);
    m_count->setText(count > seams.size() ? tr("%1 of %2").arg(seams.size()).arg(count)
                         : count == 1     ? tr("1 weld")
                                          : tr("%1 welds").arg(count));
    for (int row = 0; row < seams.size(); ++row) {
        if (seams[row].id == chosen)
            m_table->selectRow(row);
    }
    onChosen();
}

void WeldsPage::onChosen()
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    m_limits->setEnabled(!rows.isEmpty());
    m_compare->setEnabled(!rows.isEmpty());
    for (QAction *action : m_ofOne)
        action->setEnabled(!rows.isEmpty());
    if (rows.isEmpty() || !m_keeper) {
        m_chosen.reset();
        m_compare->setChecked(false);
        m_card->clear();
        return;
    }
    const Seam seam = m_model->seams().value(rows.first().row());
    const bool over = m_compare->isChecked() && m_chosen && m_chosen->id != seam.id;
    if (!over)
        m_chosen = seam;
    m_keeper->ask(
        this, [id = seam.id](SeamBook &book) { return book.course(id); },
        [this, seam, over](const Course &course) {
            if (over)
                m_card->showOver(
                    course,
                    tr("over it: %1")
                        .arg(seam.startedAt().toString(QStringLiteral("MM-dd HH:mm:ss"))));
            else if (m_keeper)
                m_card->showSeam(seam, course, m_keeper->limits(seam.weldFile));
            scrollToChosen();
        });
}

// The card has just taken room from the table.
void WeldsPage::scrollToChosen()
{
    QTimer::singleShot(0, m_table, [table = m_table] { table->scrollTo(table->currentIndex()); });
}

void WeldsPage::compare(bool on)
{
    m_compare->setText(on ? tr("Touch the other weld") : tr("Lay another over it"));
    if (!on)
        onChosen();
}

} // namespace welmo::book
