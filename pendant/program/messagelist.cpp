#include "pendant/program/messagelist.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include "pendant/state/messagemodel.h"
#include "pendant/theme/look.h"
#include "tessa/messagelog.h"
#include "vu/xtheme.h"

namespace welmo::pendant {

using tessa::MessageLog;

namespace {

constexpr int messageHeight = 96; // for the time and three lines of text
constexpr int padding = 8;
constexpr int pictureSize = 20;

class MessagePainter : public QStyledItemDelegate
{
public:
    explicit MessagePainter(QObject *parent)
        : QStyledItemDelegate(parent)
        , m_small(themeFont(vu::xtheme::current(), QStringLiteral("small")))
    { }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {0, messageHeight};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const auto &theme = vu::xtheme::current();
        const QRect rect = option.rect.adjusted(padding, padding, -padding, -padding);
        const auto sibling = [&index](int column) { return index.siblingAtColumn(column); };
        painter->save();
        painter->setFont(m_small);
        const auto picture = sibling(MessageLog::Level).data(Qt::DecorationRole).value<QPixmap>();
        painter->drawPixmap(QRect(rect.topLeft(), QSize(pictureSize, pictureSize)), picture);
        painter->setPen(theme.color(QStringLiteral("text_dim")));
        painter->drawText(rect.adjusted(pictureSize + padding, 0, 0, 0), Qt::AlignTop,
                          sibling(MessageLog::Time).data().toString());
        painter->setPen(theme.color(QStringLiteral("text")));
        QTextOption wrapping;
        wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        painter->drawText(QRectF(rect.adjusted(0, pictureSize + 4, 0, 0)), index.data().toString(),
                          wrapping);
        painter->setPen(theme.color(QStringLiteral("tbl_grid")));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        painter->restore();
    }

private:
    QFont m_small;
};

} // namespace

MessageList::MessageList(MessageLog *log, QWidget *parent)
    : QListView(parent)
{
    setObjectName(QStringLiteral("lstMessages"));
    setModel(new MessageModel(log, this));
    setModelColumn(MessageLog::Text);
    setItemDelegate(new MessagePainter(this));
    setUniformItemSizes(true);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

} // namespace welmo::pendant
