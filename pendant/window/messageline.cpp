#include "pendant/window/messageline.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "pendant/state/messagemodel.h"
#include "pendant/theme/look.h"
#include "tessa/messagelog.h"

namespace welmo::pendant {

using tessa::MessageLog;

namespace {

constexpr int spacing = 8;

} // namespace

MessageLine::MessageLine(MessageLog *log, QWidget *parent)
    : QFrame(parent)
    , m_log(log)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_first = addRow(QStringLiteral("lblLastMessage"));
    m_second = addRow(QStringLiteral("lblLaterMessage"));
    connect(log, &MessageLog::appended, this, &MessageLine::refresh);
    connect(log, &MessageLog::unseenChanged, this, &MessageLine::refresh);
    connect(log, &QAbstractItemModel::modelReset, this, &MessageLine::refresh);
    refresh();
}

MessageLine::Row MessageLine::addRow(const QString &name)
{
    const Row row{new QLabel(this), new QLabel(this)};
    auto *line = new QHBoxLayout;
    line->setSpacing(spacing);
    line->addWidget(row.picture);
    line->addWidget(row.text, 1);
    static_cast<QVBoxLayout *>(layout())->addLayout(line);
    row.text->setObjectName(name);
    row.text->setTextFormat(Qt::PlainText);
    row.text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return row;
}

// A later success must not replace an error, nor an old error hide the success.
void MessageLine::refresh()
{
    const auto &entries = m_log->entries();
    const MessageLog::Entry *error = m_log->unseenError();
    const bool hasNews = !entries.isEmpty() && !entries.first().old;
    const MessageLog::Entry *newest = hasNews ? &entries.first() : nullptr;
    const MessageLog::Entry *first = error ? error : newest;
    const MessageLog::Entry *second = first == newest ? nullptr : newest;
    show(&m_first, first ? first->level : QString(), first ? first->text : QString());
    show(&m_second, second ? second->level : QString(), second ? second->text : QString());
    m_second.picture->setVisible(second);
    m_second.text->setVisible(second);
}

void MessageLine::mouseReleaseEvent(QMouseEvent *)
{
    emit touched();
}

void MessageLine::show(Row *row, const QString &level, const QString &text)
{
    row->full = text;
    row->picture->setPixmap(level.isEmpty() ? QPixmap() : levelPicture(level));
    row->text->setToolTip(text);
    setStyleWord(row->text, "level", level);
    elide(*row);
}

void MessageLine::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    for (const Row *row : {&m_first, &m_second})
        elide(*row);
}

void MessageLine::elide(const Row &row) const
{
    const QString line = QString(row.full).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const int room = width() - row.picture->sizeHint().width() - spacing;
    row.text->setText(row.text->fontMetrics().elidedText(line, Qt::ElideRight, room));
}

} // namespace welmo::pendant
