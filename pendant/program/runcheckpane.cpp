#include "pendant/program/runcheckpane.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include "pendant/program/filefacts.h"
#include "pendant/program/fileuses.h"
#include "schema/names.h"
#include "tessa/xservice.h"
#include "vu/xtheme.h"

namespace welmo::pendant {

namespace {

constexpr int rowHeight = 48;
constexpr int namedLines = 3; // lines shown for a file that many name

enum Column { Lines, Name, Exists, Current, Voltage, Speed, Finding, ColumnCount };

QString linesText(const QVector<int> &lines)
{
    QStringList numbers;
    for (int line : lines.mid(0, namedLines))
        numbers.append(QString::number(line + 1));
    if (lines.size() > namedLines)
        numbers.append(QStringLiteral("…"));
    return numbers.join(QLatin1String(", "));
}

} // namespace

RunCheckPane::RunCheckPane(QWidget *parent)
    : QFrame(parent)
    , m_heading(new QLabel(this))
    , m_table(new QTableWidget(0, ColumnCount, this))
    , m_run(new QPushButton(tr("Run all the same"), this))
    , m_approach(new QPushButton(this))
{
    m_heading->setObjectName(QStringLiteral("lblCardHeading"));
    m_table->setObjectName(QStringLiteral("tblRunCheck"));
    m_table->setHorizontalHeaderLabels({tr("Line"), tr("File"), tr("Exists"), tr("Current"),
                                        tr("Voltage"), tr("Speed"), tr("Finding")});
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(Finding, QHeaderView::Stretch);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_run->setObjectName(QStringLiteral("btnRunAllTheSame"));
    m_approach->setObjectName(QStringLiteral("btnRunFromApproach"));
    auto *back = new QPushButton(tr("Back"), this);
    back->setObjectName(QStringLiteral("btnRunCheckBack"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(back);
    buttons->addWidget(m_run);
    buttons->addWidget(m_approach);
    layout->addWidget(m_heading);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);
    connect(back, &QPushButton::clicked, this, &RunCheckPane::closed);
    connect(m_run, &QPushButton::clicked, this, &RunCheckPane::runWanted);
    connect(m_approach, &QPushButton::clicked, this,
            [this] { emit runFromWanted(m_start->approach); });
    connect(m_table, &QTableWidget::cellClicked, this, [this](int row) {
        emit lineWanted(m_table->item(row, Lines)->data(Qt::UserRole).toInt());
    });
}

bool RunCheckPane::look(const FileUses &uses, const std::optional<SeamStart> &start)
{
    m_table->setRowCount(0);
    m_findings = 0;
    m_start = start;
    if (start)
        addRow({QString::number(start->move + 1),
                start->word,
                {},
                {},
                {},
                {},
                tr("lies in a seam whose ArcOn is line %1: without it there is no arc")
                    .arg(start->arcOn + 1)},
               start->move, true);
    addFiles(uses);
    refreshHeading();
    return m_findings == 0;
}

void RunCheckPane::addFiles(const FileUses &uses)
{
    XService *service = xservice();
    const double rated =
        ratedCurrentIn(service->get(nullptr, names::welderSetting)->toVariant().toMap());
    for (const FileUses::Use &use : uses.all()) {
        QStringList cells{linesText(use.lines), use.name};
        QString finding, remark;
        if (use.meant.isEmpty()) {
            const FileFacts facts = factsOf(use.name, rated, service);
            cells += {!facts.isKnown     ? tr("unknown")
                          : facts.exists ? tr("yes")
                                         : tr("no"),
                      facts.current, facts.voltage, facts.speed};
            finding = facts.finding;
            remark = facts.remark;
        } else {
            cells += {{}, {}, {}, {}};
            finding = tr("no instruction and passed over; %1 may be meant").arg(use.meant);
        }
        addRow(cells << finding + remark, use.lines.first(), !finding.isEmpty());
    }
}

void RunCheckPane::addRow(const QStringList &cells, int line, bool isWrong)
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    for (int column = 0; column < cells.size(); ++column)
        m_table->setItem(row, column, new QTableWidgetItem(cells.at(column)));
    m_table->item(row, Lines)->setData(Qt::UserRole, line);
    if (!isWrong)
        return;
    ++m_findings;
    const QColor red = vu::xtheme::current().color(QStringLiteral("error"));
    for (int column : {int(Name), int(Finding)})
        m_table->item(row, column)->setForeground(red);
}

void RunCheckPane::refreshHeading()
{
    m_heading->setText(m_table->rowCount() == 0 ? tr("The program names no parameter file")
                           : m_findings == 0    ? tr("Before the run: nothing is wrong")
                           : m_findings == 1    ? tr("Before the run: 1 finding")
                                             : tr("Before the run: %1 findings").arg(m_findings));
}

void RunCheckPane::offerRun(bool mayRun)
{
    m_run->setVisible(mayRun);
    m_approach->setVisible(mayRun && m_start);
    if (m_start)
        m_approach->setText(tr("Run from line %1").arg(m_start->approach + 1));
}

} // namespace welmo::pendant
