#include "pendant/program/arccheckpage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "pendant/program/arcchecks.h"
#include "pendant/state/cell.h"
#include "pendant/theme/look.h"
#include "tessa/xservice.h"

namespace welmo::pendant {

namespace {

constexpr int lookMs = 500;
constexpr int columns = 2;

QString wordFor(ArcCheck::Verdict verdict)
{
    if (verdict == ArcCheck::Verdict::Unknown)
        return QStringLiteral("unknown");
    return verdict == ArcCheck::Verdict::Good ? QStringLiteral("good") : QStringLiteral("bad");
}

} // namespace

ArcCheckPage::ArcCheckPage(const ProgramDocument *program, const Cell *cell, QWidget *parent)
    : HostPage(tr("Why is there no arc?"), parent)
    , m_program(program)
    , m_cell(cell)
{
    setObjectName(QStringLiteral("pgArcChecks"));
    const QVector<ArcCheck> checks = arcChecks(*program, *cell, xservice());
    const int half = (checks.size() + 1) / columns;
    m_sum = new QLabel(this);
    m_sum->setObjectName(QStringLiteral("lblCheckSum"));
    m_sum->setTextFormat(Qt::PlainText);
    m_sum->setWordWrap(true);
    body()->addWidget(m_sum);
    auto *row = new QHBoxLayout;
    row->setSpacing(body()->spacing());
    for (int column = 0; column < columns; ++column) {
        auto *card = new Card(QString(), this);
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(12);
        grid->setVerticalSpacing(10);
        grid->setColumnStretch(1, 1);
        for (const ArcCheck &check : checks.mid(column * half, half))
            addRow(check, grid);
        card->body()->addLayout(grid);
        card->body()->addStretch(1);
        row->addWidget(card, 1);
    }
    addColumns(row);
    body()->addStretch(1);
    m_looks.setInterval(lookMs);
    connect(&m_looks, &QTimer::timeout, this, &ArcCheckPage::refresh);
    connect(cell, &Cell::changed, this, [this] {
        if (isVisible())
            refresh();
    });
}

void ArcCheckPage::addRow(const ArcCheck &check, QGridLayout *grid)
{
    const int row = grid->rowCount();
    auto *text = new QLabel(check.text, this);
    auto *value = new QLabel(this);
    value->setObjectName(QStringLiteral("lblCheck_") + check.id);
    value->setTextFormat(Qt::PlainText);
    value->setWordWrap(true);
    auto *button = new QPushButton(tr("Go there"), this);
    button->setObjectName(QStringLiteral("btnCheck_") + check.id);
    button->setAccessibleName(check.text);
    connect(button, &QPushButton::clicked, this,
            [this, page = check.page] { emit pageWanted(page); });
    grid->addWidget(text, row, 0);
    grid->addWidget(value, row, 1);
    grid->addWidget(button, row, 2);
    m_rows.insert(check.id, {text, value});
}

void ArcCheckPage::showEvent(QShowEvent *event)
{
    HostPage::showEvent(event);
    refresh();
    m_looks.start();
}

void ArcCheckPage::hideEvent(QHideEvent *event)
{
    HostPage::hideEvent(event);
    m_looks.stop();
}

void ArcCheckPage::refresh()
{
    QStringList wrong;
    for (const ArcCheck &check : arcChecks(*m_program, *m_cell, xservice())) {
        if (check.verdict == ArcCheck::Verdict::Bad)
            wrong.append(tr("%1: %2").arg(check.text, check.value));
        const Row row = m_rows.value(check.id);
        row.text->setText(check.text);
        row.value->setText(check.value);
        setStyleWord(row.value, "verdict", wordFor(check.verdict));
    }
    // In full, since a row may be out of sight.
    m_sum->setText(wrong.isEmpty() ? tr("Nothing is in the way of an arc.")
                                   : wrong.join(QStringLiteral("; ")));
    setStyleWord(m_sum, "verdict",
                 wrong.isEmpty() ? QStringLiteral("good") : QStringLiteral("bad"));
}

} // namespace welmo::pendant
