#include "pendant/pages/messagespage.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "pendant/state/messagemodel.h"
#include "pendant/theme/look.h"
#include "tessa/messagelog.h"

namespace welmo::pendant {

using tessa::MessageLog;

namespace {

constexpr int widthForAll = 860;

} // namespace

MessagesPage::MessagesPage(MessageLog *log, QWidget *parent)
    : HostPage(tr("Messages"), parent)
    , m_log(log)
    , m_model(new MessageModel(log, this))
    , m_table(makeTable())
    , m_detail(new QLabel(this))
{
    m_detail->setObjectName(QStringLiteral("lblMessageDetail"));
    m_detail->setWordWrap(true);
    m_detail->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_detail->setMinimumHeight(72);
    body()->addLayout(makeBar(log));
    body()->addWidget(m_table, 1);
    body()->addWidget(m_detail);
    connect(log, &MessageLog::unseenChanged, this, &MessagesPage::onUnseen);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MessagesPage::showDetail);
    connect(m_model, &QAbstractItemModel::modelReset, this, &MessagesPage::showDetail);
    showDetail();
}

QLayout *MessagesPage::makeBar(MessageLog *log)
{
    auto *bar = new QHBoxLayout;
    bar->setSpacing(8);
    addFilter(bar, QString(), tr("All"));
    for (const char *level : {"error", "warning", "info"})
        addFilter(bar, QString::fromLatin1(level), levelText(QString::fromLatin1(level)));
    bar->addStretch(1);
    auto *clear = new QPushButton(tr("Clear"), this);
    clear->setObjectName(QStringLiteral("btnClearMessages"));
    connect(clear, &QPushButton::clicked, log, &MessageLog::clear);
    bar->addWidget(clear);
    return bar;
}

void MessagesPage::addFilter(QHBoxLayout *bar, const QString &level, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QStringLiteral("btnLevel_") + level);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setChecked(level.isEmpty());
    if (!level.isEmpty())
        button->setIcon(besideText(levelPicture(level)));
    button->setIconSize(besideTextSize);
    connect(button, &QPushButton::clicked, m_model, [this, level] { m_model->setLevel(level); });
    bar->addWidget(button);
}

QTableView *MessagesPage::makeTable()
{
    auto *table = new QTableView(this);
    table->setObjectName(QStringLiteral("tblMessages"));
    table->setModel(m_model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setWordWrap(false);
    table->setIconSize({24, 24});
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(48);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->horizontalHeader()->setSectionResizeMode(MessageLog::Text, QHeaderView::Stretch);
    table->setColumnWidth(MessageLog::Time, 212);
    table->setColumnWidth(MessageLog::Sender, 184);
    return table;
}

// A narrow page leaves the width to the texts: the picture tells the level, the detail the sender.
void MessagesPage::resizeEvent(QResizeEvent *event)
{
    HostPage::resizeEvent(event);
    const bool isNarrow = width() < widthForAll;
    m_model->setBrief(isNarrow);
    m_table->setColumnHidden(MessageLog::Sender, isNarrow);
    m_table->setColumnWidth(MessageLog::Level, isNarrow ? 76 : 130);
}

void MessagesPage::showEvent(QShowEvent *event)
{
    HostPage::showEvent(event);
    m_log->markSeen();
}

// Messages that arrive while the page is open count as seen.
void MessagesPage::onUnseen()
{
    if (isVisible())
        m_log->markSeen();
}

void MessagesPage::showDetail()
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows(MessageLog::Text);
    if (rows.isEmpty()) {
        m_detail->setText(tr("Touch a message to read it in full."));
        return;
    }
    const QString sender = senderText(rows.first().data(MessageLog::SenderRole).toString());
    const QString text = rows.first().data().toString();
    m_detail->setText(sender.isEmpty() ? text : tr("%1\nFrom: %2").arg(text, sender));
}

} // namespace welmo::pendant
