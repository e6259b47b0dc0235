#include "instructions/move/taughtnotice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "instructions/move/pointlist.h"

namespace welmo {

TaughtNotice::TaughtNotice(QWidget *parent)
    : QWidget(parent)
    , m_text(new QLabel(this))
{
    m_text->setObjectName(QStringLiteral("lblTaught"));
    m_text->setWordWrap(true);
    auto *button = new QPushButton(tr("Use the point's own"), this);
    button->setObjectName(QStringLiteral("btnTaught"));
    button->setProperty("func", QStringLiteral("touch"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this] { emit ownWanted(m_tool, m_workObject); });
    hide();
}

void TaughtNotice::compare(const QString &point, const QString &tool, const QString &workObject)
{
    const points::Point taught = points::find(point).value_or(points::Point());
    const auto differs = [](const QString &own, const QString &used) {
        return !own.isEmpty() && !used.isEmpty() && own != used;
    };
    QStringList lines;
    if (differs(taught.workObject, workObject))
        lines.append(
            tr("%1 was taught in %2; the line uses %3").arg(point, taught.workObject, workObject));
    if (differs(taught.tool, tool))
        lines.append(tr("%1 was taught with %2; the line uses %3").arg(point, taught.tool, tool));
    m_tool = taught.tool;
    m_workObject = taught.workObject;
    m_text->setText(lines.join(QLatin1Char('\n')));
    setHidden(lines.isEmpty());
}

} // namespace welmo
