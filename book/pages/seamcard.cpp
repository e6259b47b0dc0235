#include "book/pages/seamcard.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <functional>

#include "book/pages/courseplot.h"
#include "book/pages/words.h"
#include "book/report/tables.h"

namespace welmo::book {

namespace {

QString file(const QString &name, qint64 version)
{
    if (name.isEmpty())
        return Words::notTold();
    return version > 0 ? QStringLiteral("%1 (v%2)").arg(name).arg(version) : name;
}

QString weldFile(const Seam &seam)
{
    const QString text = file(seam.weldFile, seam.weldVersion);
    return seam.trims > 0 ? SeamCard::tr("%1, trimmed %2×").arg(text).arg(seam.trims) : text;
}

} // namespace

SeamCard::SeamCard(QWidget *parent)
    : QWidget(parent)
    , m_verdict(new QLabel(this))
    , m_reason(makeLabel({}, "value", this))
    , m_over(makeLabel({}, "hint", this))
    , m_body(new QWidget(this))
    , m_plot(new CoursePlot(m_body))
{
    setObjectName(QStringLiteral("wgtCard"));
    setAttribute(Qt::WA_StyledBackground);
    m_verdict->setObjectName(QStringLiteral("lblVerdict"));
    m_verdict->setAlignment(Qt::AlignCenter);
    m_reason->setObjectName(QStringLiteral("lblReason"));
    m_reason->setWordWrap(true);

    auto *head = new QHBoxLayout;
    head->setSpacing(12);
    head->addWidget(m_verdict);
    head->addWidget(m_reason, 1);
    head->addWidget(m_over);
    auto *body = new QHBoxLayout(m_body);
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(16);
    body->addWidget(makeFacts());
    body->addWidget(m_plot, 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 8);
    column->addLayout(head);
    column->addWidget(m_body, 1);
    clear();
}

QWidget *SeamCard::makeFacts()
{
    auto *facts = new QWidget(this);
    auto *column = new QVBoxLayout(facts);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    m_values = new QGridLayout;
    m_values->setHorizontalSpacing(14);
    m_values->setVerticalSpacing(0);
    const QString heads[] = {QString(), tr("set"), tr("mean"), tr("min … max"),
                             QStringLiteral("σ")};
    for (int i = 1; i < 5; ++i)
        m_values->addWidget(makeLabel(heads[i], "name", facts), 0, i, Qt::AlignRight);
    addValueRow(tr("Current, A"), 0, {}, &Seam::setCurrent, &Seam::current);
    addValueRow(tr("Voltage, V"), 1, {}, &Seam::setVoltage, &Seam::voltage);
    addValueRow(tr("Speed, mm/s"), 1, {}, &Seam::setSpeed, &Seam::speed);
    m_grid = new QGridLayout;
    m_grid->setHorizontalSpacing(10);
    m_grid->setVerticalSpacing(0);
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnStretch(3, 1);
    addFact(tr("Program"), [](const Seam &seam) {
        return seam.program.isEmpty() ? Words::notTold()
                                      : tr("%1, line %2").arg(seam.program).arg(seam.line);
    });
    addFact(tr("Ended"), [](const Seam &seam) { return Words::ending(seam.ended); });
    addFact(tr("Welding"), weldFile);
    addFact(tr("Arc start"),
            [](const Seam &seam) { return file(seam.arconFile, seam.arconVersion); });
    addFact(tr("Mode"), [](const Seam &seam) { return Words::mode(seam.mode); });
    addFact(tr("Arc end"),
            [](const Seam &seam) { return file(seam.arcoffFile, seam.arcoffVersion); });
    addFact(tr("User"), [](const Seam &seam) { return Words::user(seam.user); });
    addFact(tr("Arc time"),
            [](const Seam &seam) { return Words::number(seam.arcTime, 1, QStringLiteral("s")); });
    addFact(tr("Length"),
            [](const Seam &seam) { return Words::number(seam.length, 1, QStringLiteral("mm")); });
    addFact(tr("Gas time"),
            [](const Seam &seam) { return Words::number(seam.gasTime, 1, QStringLiteral("s")); });
    addFact(tr("Wire"),
            [](const Seam &seam) { return Words::number(seam.wire, 2, QStringLiteral("m")); });
    addFact(tr("Arc energy"), [](const Seam &seam) {
        return Words::number(seam.arcEnergy, 3, QStringLiteral("kJ/mm"));
    });
    addFact(tr("Struck again"), [](const Seam &seam) { return QString::number(seam.restrikes); });
    addFact(tr("Heat input"), [](const Seam &seam) {
        return Words::number(seam.heatInput, 3, QStringLiteral("kJ/mm"));
    });
    column->addLayout(m_values);
    column->addLayout(m_grid);
    column->addStretch(1);
    return facts;
}

void SeamCard::addFact(const QString &title, const std::function<QString(const Seam &)> &text)
{
    const int row = m_grid->count() / 4;
    const int column = m_grid->count() % 4;
    auto *label = makeLabel({}, "value", this);
    m_grid->addWidget(makeLabel(title, "name", this), row, column);
    m_grid->addWidget(label, row, column + 1);
    m_facts.push_back({label, text});
}

void SeamCard::addValueRow(const QString &title, int decimals, const QString &unit,
                           std::optional<double> Seam::*set, Spread Seam::*actual)
{
    const int row = m_values->rowCount();
    m_values->addWidget(makeLabel(title, "name", this), row, 0);
    const auto add = [&](int column, const std::function<QString(const Seam &)> &text) {
        auto *label = makeLabel({}, "value", this);
        m_values->addWidget(label, row, column, Qt::AlignRight);
        m_facts.push_back({label, text});
    };
    add(1, [=](const Seam &seam) { return Words::number(seam.*set, decimals, unit); });
    add(2, [=](const Seam &seam) { return Words::number((seam.*actual).mean, decimals, unit); });
    add(3, [=](const Seam &seam) {
        return QStringLiteral("%1 … %2").arg(Words::number((seam.*actual).minimum, decimals),
                                             Words::number((seam.*actual).maximum, decimals));
    });
    add(4, [=](const Seam &seam) { return Words::number((seam.*actual).deviation, decimals + 1); });
}

void SeamCard::showSeam(const Seam &seam, const Course &course, const Limits &limits)
{
    const QString words[] = {QStringLiteral("none"), QStringLiteral("green"),
                             QStringLiteral("amber"), QStringLiteral("red")};
    open(true);
    m_verdict->setText(Words::verdict(seam.verdict));
    m_verdict->show();
    setStyleWord(m_verdict, "verdict", words[static_cast<int>(seam.verdict)]);
    QStringList why{seam.startedAt().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
    why += Words::reasons(seam.reason);
    why += alarmText(seam);
    why.removeAll(QString());
    m_reason->setText(why.join(QStringLiteral("  ·  ")));
    for (const Fact &fact : m_facts)
        fact.label->setText(fact.text(seam));
    m_plot->setCourse(course);
    m_plot->setLimits(limits);
    m_plot->setSetValues(seam);
    m_plot->setSpan(0, qMax(1.0, double(course.samples.size()) / course.rate));
    showOver({}, {});
}

void SeamCard::showOver(const Course &course, const QString &which)
{
    m_plot->setSecond(course);
    m_over->setText(which);
    m_plot->replot();
}

void SeamCard::clear()
{
    m_verdict->hide();
    m_reason->setText(tr("Touch a weld to see its record."));
    for (const Fact &fact : m_facts)
        fact.label->clear();
    m_plot->clear();
    m_plot->setSpan(0, 10);
    showOver({}, {});
    open(false);
}

// A closed card leaves its room to the list above.
void SeamCard::open(bool opened)
{
    m_body->setVisible(opened);
    setSizePolicy(QSizePolicy::Preferred, opened ? QSizePolicy::Expanding : QSizePolicy::Maximum);
}

} // namespace welmo::book
