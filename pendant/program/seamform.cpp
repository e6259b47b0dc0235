#include "pendant/program/seamform.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QSpinBox>
#include <algorithm>

#include "pendant/program/hostproject.h"
#include "schema/filesets.h"
#include "schema/unit.h"

namespace welmo::pendant {

namespace {

const QString fastApproach = QStringLiteral("v100");
const QString slowApproach = QStringLiteral("v50");
const QString weldSpeed = QStringLiteral("v10");
constexpr int usualDistance = 50; // mm
constexpr int greatestDistance = 500;

tl::ProjectNames project()
{
    return hostProject().value_or(tl::ProjectNames());
}

QStringList inOrder(QStringList names)
{
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        return std::make_pair(a.size(), a) < std::make_pair(b.size(), b);
    });
    return names;
}

// ",tool,wobj" with which the point was taught.
QString frameOf(const QString &point)
{
    const tl::ProjectNames::Taught taught = project().points.value(point);
    const QString tool = taught.tool.isEmpty() ? QStringLiteral("tool0") : taught.tool;
    const QString wobj = taught.wobj.isEmpty() ? QStringLiteral("wobj0") : taught.wobj;
    return QLatin1Char(',') + tool + QLatin1Char(',') + wobj;
}

} // namespace

SeamForm::SeamForm(QWidget *parent)
    : HostForm(parent)
{
    const tl::ProjectNames names = project();
    const QStringList points = inOrder(names.points.keys());
    auto *layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(8);
    layout->setColumnStretch(1, 1);
    m_from = addChoice(layout, tr("From"), "cbxSeamFrom", points);
    m_to = addChoice(layout, tr("To"), "cbxSeamTo", points);
    m_to->setCurrentIndex(std::min(1, m_to->count() - 1));
    m_speed =
        addChoice(layout, tr("Speed of the bead"), "cbxSeamSpeed", inOrder(names.speeds.values()));
    m_speed->setCurrentText(weldSpeed);
    m_start = addChoice(layout, tr("Arc-start file"), "cbxSeamArcOn", schema::arcOn().fileNames());
    m_weld = addChoice(layout, tr("Welding file"), "cbxSeamWeld", schema::weld().fileNames());
    m_end = addChoice(layout, tr("Arc-end file"), "cbxSeamArcOff", schema::arcOff().fileNames());
    m_distance = new QSpinBox(this);
    m_distance->setObjectName(QStringLiteral("sbxSeamDistance"));
    m_distance->setRange(0, greatestDistance);
    m_distance->setValue(usualDistance);
    m_distance->setSuffix(QLatin1Char(' ') + units::mm);
    m_distance->setButtonSymbols(QAbstractSpinBox::NoButtons);
    addRow(layout, tr("Way in and out"), m_distance);
    layout->setRowStretch(layout->rowCount(), 1);
}

void SeamForm::addRow(QGridLayout *layout, const QString &label, QWidget *field)
{
    const int row = layout->rowCount();
    layout->addWidget(new QLabel(label, this), row, 0);
    layout->addWidget(field, row, 1);
}

QComboBox *SeamForm::addChoice(QGridLayout *layout, const QString &label, const char *name,
                               const QStringList &texts)
{
    auto *combo = new QComboBox(this);
    combo->setObjectName(QLatin1String(name));
    combo->setView(new QListView(combo));
    combo->addItems(texts);
    addRow(layout, label, combo);
    return combo;
}

QString SeamForm::ToString()
{
    const QString from = m_from->currentText(), to = m_to->currentText();
    const QString above = QStringLiteral("MoveL RelTool(%1,0,0,-%2,0,0,0),%3,z10%4");
    const QString distance = QString::number(m_distance->value());
    const QStringList lines{
        above.arg(from, distance, fastApproach, frameOf(from)),
        QStringLiteral("MoveL %1,%2,fine%3").arg(from, slowApproach, frameOf(from)),
        QStringLiteral("ArcOn \"%1\",\"%2\"").arg(m_start->currentText(), m_weld->currentText()),
        QStringLiteral("WMoveL %1,%2,fine%3").arg(to, m_speed->currentText(), frameOf(to)),
        QStringLiteral("ArcOff \"%1\"").arg(m_end->currentText()),
        above.arg(to, distance, fastApproach, frameOf(to))};
    return lines.join(QLatin1Char('\n'));
}

} // namespace welmo::pendant
