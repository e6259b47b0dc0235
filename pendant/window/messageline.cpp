#include "pendant/window/messageline.h"

#include <QHBoxLayout>
#include <QLabel>

#include "pendant/state/messagemodel.h"
#include "pendant/theme/look.h"
#include "tessa/messagelog.h"

namespace welmo::pendant {

using tessa::MessageLog;

MessageLine::MessageLine(MessageLog *log, QWidget *parent)
    : QFrame(parent)
    , m_log(log)
    , m_picture(new QLabel(this))
    , m_text(new QLabel(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_picture);
    layout->addWidget(m_text, 1);
    m_text->setObjectName(QStringLiteral("lblLastMessage"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(log, &MessageLog::appended, this, &MessageLine::refresh);
    connect(log, &MessageLog::unseenChanged, this, &MessageLine::refresh);
    connect(log, &QAbstractItemModel::modelReset, this, &MessageLine::refresh);
    refresh();
}

// A later success must not replace an error.
void MessageLine::refresh()
{
    const auto &entries = m_log->entries();
    const MessageLog::Entry *entry = m_log->unseenError();
    if (!entry && !entries.isEmpty() && !entries.first().old)
        entry = &entries.first();
    show(entry ? entry->level : QString(), entry ? entry->text : QString());
}

void MessageLine::mouseReleaseEvent(QMouseEvent *)
{
    emit touched();
}

void MessageLine::show(const QString &level, const QString &text)
{
    m_full = text;
    m_picture->setPixmap(level.isEmpty() ? QPixmap() : levelPicture(level));
    m_text->setToolTip(text);
    setStyleWord(m_text, "level", level);
    elide();
}

void MessageLine::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    elide();
}

void MessageLine::elide()
{
    const QString line = QString(m_full).replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_text->setText(m_text->fontMetrics().elidedText(line, Qt::ElideRight, m_text->width()));
}

} // namespace welmo::pendant
