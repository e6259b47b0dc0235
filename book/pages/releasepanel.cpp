#include "book/pages/releasepanel.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>

#include "book/keeper/bookkeeper.h"
#include "book/pages/controls.h"
#include "book/pages/fieldwords.h"
#include "book/pages/words.h"
#include "schema/filesets.h"

using welmo::schema::Release;

namespace welmo::book {

namespace {

constexpr double usualPercent = 5;

} // namespace

QString releaseText(const schema::Set &set, const Release &release)
{
    if (!release.exists())
        return {};
    QStringList trims;
    for (const QString &key : schema::trimmedKeys(set)) {
        const double percent = release.percent.value(key);
        trims.append(percent > 0
                         ? ReleasePanel::tr("%1 ± %2 %").arg(FieldWords::title(key)).arg(percent)
                         : ReleasePanel::tr("%1 locked").arg(FieldWords::title(key)));
    }
    if (trims.isEmpty())
        trims.append(ReleasePanel::tr("all locked"));
    return ReleasePanel::tr("released %1 by %2: %3")
        .arg(Words::moment(release.time), Words::user(release.user),
             trims.join(ReleasePanel::tr(", ")));
}

ReleasePanel::ReleasePanel(Bookkeeper *keeper, QWidget *parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_title(makeLabel({}, "head", this))
    , m_state(makeLabel({}, "hint", this))
    , m_since(makeLabel({}, "hint", this))
    , m_anew(new QCheckBox(tr("Release the file as it is now"), this))
{
    m_title->setObjectName(QStringLiteral("lblReleaseTitle"));
    m_state->setObjectName(QStringLiteral("lblReleaseState"));
    m_anew->setObjectName(QStringLiteral("chbReleaseAnew"));
    auto *panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("wgtPanel"));
    panel->setAttribute(Qt::WA_StyledBackground);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(4, 1);
    grid->addWidget(makeLabel(tr("at most"), "name", panel), 0, 1);
    grid->addWidget(makeLabel(tr("an operator may set"), "name", panel), 0, 3);
    for (const char *key : {"current", "voltage", "weld_speed"})
        addTrim(grid, QString::fromLatin1(key));
    auto *inside = new QVBoxLayout(panel);
    inside->setContentsMargins(16, 12, 16, 12);
    inside->addWidget(m_title);
    inside->addWidget(m_state);
    inside->addLayout(grid);
    inside->addWidget(m_anew);
    inside->addWidget(m_since);
    inside->addSpacing(8);
    inside->addWidget(
        makeLabel(tr("0 locks a value. All other values of a released file are locked "
                     "for operators; programmers and administrators are not bound."),
                  "hint", panel));
    inside->addStretch(1);
    for (QLabel *line : {m_state, m_since})
        line->setWordWrap(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(panel, 1);
    column->addWidget(makeButtons());
    connect(m_anew, &QCheckBox::toggled, this, &ReleasePanel::showRanges);
}

void ReleasePanel::addTrim(QGridLayout *grid, const QString &key)
{
    const int line = grid->rowCount();
    auto *title = new QLabel(FieldWords::title(key), this);
    auto *percent = makeNumber(QStringLiteral("sbxTrim_") + key, this);
    percent->setRange(0, 100);
    percent->setDecimals(1);
    auto *unit = makeLabel(QStringLiteral("± %"), "name", this);
    auto *allowed = makeLabel({}, "value", this);
    int column = 0;
    for (QWidget *widget : {static_cast<QWidget *>(title), static_cast<QWidget *>(percent),
                            static_cast<QWidget *>(unit), static_cast<QWidget *>(allowed)})
        grid->addWidget(widget, line, column++);
    m_rows.push_back({key, {title, percent, unit, allowed}, percent, allowed});
    connect(percent, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &ReleasePanel::showRanges);
}

QWidget *ReleasePanel::makeButtons()
{
    auto *bar = new ButtonBar(this);
    m_withdraw = bar->add(tr("Withdraw"), "btnWithdraw", this, &ReleasePanel::withdraw);
    bar->addStretch();
    bar->add(tr("Cancel"), "btnReleaseCancel", this, &ReleasePanel::done);
    bar->add(tr("Save"), "btnReleaseSave", this, &ReleasePanel::save)
        ->setProperty("func", QStringLiteral("operation"));
    return bar;
}

void ReleasePanel::edit(const QString &file)
{
    const schema::FileSet *set = schema::setOfFile(file);
    if (!m_keeper || !set)
        return;
    m_file = file;
    m_release = m_keeper->releases().of(file);
    m_present = m_keeper->files().files().value(file).toMap();
    const bool released = m_release.exists();
    const QStringList keys = schema::trimmedKeys(*set);
    for (TrimRow &row : m_rows) {
        for (QWidget *widget : row.widgets)
            widget->setVisible(keys.contains(row.key));
        row.percent->setValue(released ? m_release.percent.value(row.key) : usualPercent);
    }
    m_title->setText(tr("What an operator may change in %1").arg(file));
    const QString changes = FieldWords::changes(*set, m_release.content, m_present);
    m_since->setText(tr("Changed since: %1").arg(changes));
    m_since->setVisible(released && !changes.isEmpty());
    m_anew->setChecked(!released);
    m_anew->setVisible(released && !changes.isEmpty());
    m_withdraw->setEnabled(released);
    QString state = released ? releaseText(*set, m_release)
                             : tr("not released: an operator may change everything");
    state[0] = state[0].toUpper();
    m_state->setText(m_keeper->releases().isEnforced()
                         ? state + QLatin1Char('.')
                         : tr("%1. This controller does not refuse anything: the weld book warns "
                              "in the message log after a change that goes too far.")
                               .arg(state));
    showRanges();
}

Release ReleasePanel::wanted() const
{
    Release release{m_anew->isChecked() ? m_present : m_release.content, {}, {}, {}};
    for (const TrimRow &row : m_rows) {
        if (!row.percent->isHidden())
            release.percent.insert(row.key, row.percent->value());
    }
    return release;
}

void ReleasePanel::showRanges()
{
    const schema::FileSet *set = schema::setOfFile(m_file);
    if (!set)
        return;
    const Release release = wanted();
    for (const TrimRow &row : m_rows) {
        const schema::Range range = schema::allowedBy(*set, release, row.key);
        const QString most = FieldWords::value(*set, row.key, range.maximum, release.content);
        row.allowed->setText(range.minimum == range.maximum
                                 ? most
                                 : QStringLiteral("%1 … %2").arg(range.minimum).arg(most));
    }
}

void ReleasePanel::save()
{
    store(wanted());
}

void ReleasePanel::withdraw()
{
    store({});
}

// Stays open if the controller refuses.
void ReleasePanel::store(const Release &release)
{
    QString problem;
    if (!m_keeper)
        return;
    if (!m_keeper->releases().set(m_file, release, &problem))
        return m_keeper->tellError(problem);
    m_keeper->tellInfo(release.exists() ? tr("%1 is released").arg(m_file)
                                        : tr("%1 is no longer released").arg(m_file));
    emit done();
}

} // namespace welmo::book
