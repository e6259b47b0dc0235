#include "book/pages/limitspanel.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>

#include "book/keeper/bookkeeper.h"
#include "book/pages/controls.h"
#include "book/pages/words.h"

namespace welmo::book {

namespace {

constexpr double most = 100000;
constexpr double unset = -1; // shown as a dash
constexpr int mostToLearnFrom = 100;

std::optional<double> valueOf(const QDoubleSpinBox *box)
{
    return box->value() < 0 ? std::nullopt : std::optional<double>(box->value());
}

} // namespace

LimitsPanel::LimitsPanel(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_title(makeLabel({}, "head", this))
    , m_origin(makeLabel({}, "hint", this))
{
    m_title->setObjectName(QStringLiteral("lblLimitsTitle"));
    m_origin->setObjectName(QStringLiteral("lblLimitsOrigin"));
    m_origin->setWordWrap(true);
    auto *panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("wgtPanel"));
    panel->setAttribute(Qt::WA_StyledBackground);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(4, 1);
    grid->addWidget(makeLabel(tr("at least"), "name", panel), 0, 1);
    grid->addWidget(makeLabel(tr("at most"), "name", panel), 0, 2);
    for (const BandRow &row : bandRows())
        addBand(grid, row);
    addMasks(grid);
    addEfficiency(grid);
    auto *inside = new QVBoxLayout(panel);
    inside->setContentsMargins(16, 12, 16, 12);
    inside->addWidget(m_title);
    inside->addWidget(m_origin);
    inside->addLayout(grid);
    inside->addWidget(
        makeLabel(tr("The end that is not judged delays the alarm by as much."), "hint", panel));
    inside->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(panel, 1);
    column->addWidget(makeButtons());
}

QDoubleSpinBox *LimitsPanel::addBox(QGridLayout *grid, int row, int column, const QString &name)
{
    QDoubleSpinBox *box = makeNumber(name, this);
    grid->addWidget(box, row, column);
    return box;
}

void LimitsPanel::addBand(QGridLayout *grid, const BandRow &row)
{
    const int line = grid->rowCount();
    QString title = bandTitle(row.name);
    title[0] = title[0].toUpper();
    grid->addWidget(new QLabel(title, this), line, 0);
    const auto add = [&](int column, const QString &name) {
        auto *box = addBox(grid, line, column, name.arg(row.name));
        box->setRange(unset, most);
        box->setDecimals(row.name == QLatin1String("heat_input") ? 3 : 1);
        box->setSpecialValueText(QStringLiteral("–"));
        return box;
    };
    QDoubleSpinBox *low = add(1, QStringLiteral("sbx_%1_low"));
    m_bands.push_back({&row, low, add(2, QStringLiteral("sbx_%1_high"))});
    grid->addWidget(makeLabel(row.unit, "name", this), line, 3);
}

void LimitsPanel::addMasks(QGridLayout *grid)
{
    const int line = grid->rowCount();
    grid->addWidget(new QLabel(tr("Not judged at start and end"), this), line, 0);
    m_maskStart = addBox(grid, line, 1, QStringLiteral("sbxMaskStart"));
    m_maskEnd = addBox(grid, line, 2, QStringLiteral("sbxMaskEnd"));
    for (QDoubleSpinBox *box : {m_maskStart, m_maskEnd}) {
        box->setRange(0, 60);
        box->setDecimals(1);
        box->setSingleStep(0.1);
    }
    grid->addWidget(makeLabel(QStringLiteral("s"), "name", this), line, 3);
}

void LimitsPanel::addEfficiency(QGridLayout *grid)
{
    const int line = grid->rowCount();
    grid->addWidget(new QLabel(tr("Thermal efficiency, of every file"), this), line, 0);
    m_efficiency = addBox(grid, line, 1, QStringLiteral("sbxEfficiency"));
    m_efficiency->setRange(0.1, 1);
    m_efficiency->setSingleStep(0.05);
}

QWidget *LimitsPanel::makeButtons()
{
    auto *bar = new ButtonBar(this);
    bar->add(tr("Learn from good welds"), "btnLearn", this, &LimitsPanel::learn);
    bar->add(tr("No limits"), "btnNoLimits", this, [this] {
        Limits none;
        none.file = m_file;
        show(none);
    });
    bar->addStretch();
    bar->add(tr("Cancel"), "btnLimitsCancel", this, &LimitsPanel::done);
    bar->add(tr("Save"), "btnLimitsSave", this, &LimitsPanel::save)
        ->setProperty("func", QStringLiteral("operation"));
    return bar;
}

void LimitsPanel::edit(const QString &file)
{
    m_file = file;
    m_title->setText(tr("Limits of %1").arg(file));
    show(m_keeper ? m_keeper->limits(file) : Limits());
    m_efficiency->setValue(m_keeper ? m_keeper->efficiency() : SeamRecorder::usualEfficiency);
}

void LimitsPanel::show(const Limits &limits)
{
    for (const BandBoxes &boxes : m_bands) {
        const Band &band = limits.*boxes.row->band;
        boxes.low->setValue(band.low.value_or(unset));
        boxes.high->setValue(band.high.value_or(unset));
    }
    m_maskStart->setValue(limits.maskStart / 1000.0);
    m_maskEnd->setValue(limits.maskEnd / 1000.0);
    m_learntFrom = limits.learntFrom;
    m_origin->setText(limits.learntFrom > 0 ? tr("Learnt from %1 welds.").arg(limits.learntFrom)
                          : limits.areSet() ? tr("Set by hand.")
                                            : tr("This file has no limits."));
}

Limits LimitsPanel::shown() const
{
    Limits limits;
    limits.file = m_file;
    for (const BandBoxes &boxes : m_bands)
        limits.*boxes.row->band = {valueOf(boxes.low), valueOf(boxes.high)};
    limits.maskStart = qRound(m_maskStart->value() * 1000);
    limits.maskEnd = qRound(m_maskEnd->value() * 1000);
    limits.learntFrom = m_learntFrom;
    return limits;
}

// Good seams ended as programmed, without trouble, and were not outside earlier limits.
void LimitsPanel::learn()
{
    if (!m_keeper)
        return;
    Filter filter;
    filter.file = m_file;
    filter.realOnly = true;
    m_keeper->ask(
        this,
        [filter](SeamBook &book) {
            QVector<Seam> good;
            for (const Seam &seam : book.list(filter, 10 * mostToLearnFrom)) {
                const bool fine = seam.ended == ending::regular
                    && (seam.verdict == Verdict::Green
                        || (seam.verdict == Verdict::None && seam.reason.isEmpty()));
                if (fine && good.size() < mostToLearnFrom)
                    good.append(seam);
            }
            return good;
        },
        [this](const QVector<Seam> &good) { propose(learnt(m_file, good), good.size()); });
}

void LimitsPanel::propose(const std::optional<Limits> &limits, int good)
{
    if (!limits) {
        m_origin->setText(tr("There are %1 good welds with this file; it takes at least %2.")
                              .arg(good)
                              .arg(fewestToLearnFrom));
        return;
    }
    Limits proposal = *limits;
    proposal.maskStart = qRound(m_maskStart->value() * 1000);
    proposal.maskEnd = qRound(m_maskEnd->value() * 1000);
    show(proposal);
    m_origin->setText(
        tr("From %1 good welds: mean ± 3 σ. Nothing is in force before it is saved.").arg(good));
}

void LimitsPanel::save()
{
    for (const BandBoxes &boxes : m_bands) {
        if (valueOf(boxes.low) && valueOf(boxes.high)
            && *valueOf(boxes.low) > *valueOf(boxes.high)) {
            m_origin->setText(
                tr("%1: the lower limit is above the upper one.").arg(bandTitle(boxes.row->name)));
            return;
        }
    }
    if (m_keeper) {
        m_keeper->setLimits(shown());
        m_keeper->setEfficiency(m_efficiency->value());
    }
    emit done();
}

} // namespace welmo::book
