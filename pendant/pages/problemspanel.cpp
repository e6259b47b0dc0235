#include "pendant/pages/problemspanel.h"

#include <QLabel>

#include "tessa/host.h"

namespace welmo::pendant {

namespace {

constexpr int shownLines = 3;

} // namespace

ProblemsPanel::ProblemsPanel(tessa::MessageLog *log, QWidget *parent)
    : Card(tr("Needs attention"), parent)
    , m_log(log)
    , m_lines(addText(QString()))
{
    m_lines->setObjectName(QStringLiteral("lblProblems"));
    m_lines->setTextFormat(Qt::PlainText);
    connect(log, &tessa::MessageLog::appended, this, &ProblemsPanel::refresh);
    connect(log, &QAbstractItemModel::modelReset, this, &ProblemsPanel::refresh);
    refresh();
}

// Shows the host's own lines, on files and the controller; a module's lines answer the operator.
void ProblemsPanel::refresh()
{
    const QString host = QString::fromLatin1(tessa::Host::staticMetaObject.className());
    QStringList lines;
    for (const auto &entry : m_log->entries()) {
        if (!entry.old && entry.sender == host && !lines.contains(entry.text)
            && lines.size() < shownLines)
            lines.append(entry.text);
    }
    m_lines->setText(lines.join(QLatin1Char('\n')));
    setVisible(any());
    emit anyChanged(any());
}

bool ProblemsPanel::any() const
{
    return !m_lines->text().isEmpty();
}

} // namespace welmo::pendant
