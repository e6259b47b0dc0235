#include "pendant/program/linelist.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "pendant/program/linecolours.h"
#include "pendant/program/programcheck.h"
#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"
#include "pendant/theme/look.h"
#include "vu/xtheme.h"

namespace welmo::pendant {

namespace {

constexpr int rowHeight = 40; // high enough for a finger, and low enough for twelve on a page
constexpr int numberWidth = 64;
constexpr int markSize = 24;
constexpr int textLeft = numberWidth + markSize + 20;

QColor color(const char *key)
{
    return vu::xtheme::current().color(QString::fromLatin1(key));
}

class LinePainter : public QStyledItemDelegate
{
public:
    LinePainter(const ProgramCheck *check, const ProgramRun *run, QObject *parent)
        : QStyledItemDelegate(parent)
        , m_check(check)
        , m_run(run)
        , m_mark(themePixmap(QStringLiteral("widget/log_warning")))
        , m_font(themeFont(vu::xtheme::current(), QStringLiteral("mono")))
    { }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {textLeft, rowHeight};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        painter->save();
        painter->setClipRect(option.rect);
        const int row = index.row();
        const bool isChosen = option.state & QStyle::State_Selected;
        painter->fillRect(option.rect, color(isChosen ? "topic" : "input_bkg"));
        paintMargin(painter, option.rect, row, isChosen);
        painter->setFont(m_font);
        paintLine(painter, option.rect.adjusted(textLeft, 0, -8, 0), index.data().toString(),
                  isChosen);
        painter->restore();
    }

private:
    void paintMargin(QPainter *painter, const QRect &rect, int row, bool isChosen) const
    {
        const bool isHere = m_run->line() == row;
        const bool isFailed = isHere && m_run->state() == ProgramRun::State::Failed;
        QRect margin(rect.left(), rect.top(), numberWidth, rect.height());
        if (!isChosen || isHere)
            painter->fillRect(margin, color(isFailed ? "error" : isHere ? "ok" : "tbl_head"));
        painter->setPen(color(isChosen || isHere ? "white" : "text_dim"));
        painter->drawText(margin.adjusted(0, 0, -10, 0), Qt::AlignRight | Qt::AlignVCenter,
                          QString::number(row + 1));
        if (isHere)
            paintArrow(painter, margin);
        if (m_check->isWrong(row)) {
            const QPoint place(margin.right() + 11, rect.center().y() - markSize / 2);
            const QRect mark(place, QSize(markSize, markSize));
            if (isChosen) // the mark's own colour would not show on the selection
                painter->fillRect(mark.adjusted(-3, -3, 3, 3), color("input_bkg"));
            painter->drawPixmap(mark, m_mark);
        }
    }

    static void paintArrow(QPainter *painter, const QRect &margin)
    {
        const int middle = margin.center().y();
        const QPoint points[]{{margin.left() + 8, middle - 8},
                              {margin.left() + 8, middle + 8},
                              {margin.left() + 20, middle}};
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(color("white"));
        painter->drawPolygon(points, 3);
    }

    static void paintLine(QPainter *painter, const QRect &rect, const QString &line, bool isChosen)
    {
        int left = rect.left();
        for (const ColouredPart &part : colouredParts(line)) {
            painter->setPen(color(isChosen ? "white" : part.color));
            painter->drawText(QRect(left, rect.top(), rect.right() - left, rect.height()),
                              Qt::AlignVCenter | Qt::TextSingleLine, part.text);
            left += painter->fontMetrics().horizontalAdvance(part.text);
        }
    }

    const ProgramCheck *m_check;
    const ProgramRun *m_run;
    QPixmap m_mark;
    QFont m_font;
};

} // namespace

LineList::LineList(ProgramDocument *document, const ProgramCheck *check, const ProgramRun *run,
                   QWidget *parent)
    : QListView(parent)
{
    setObjectName(QStringLiteral("lstLines"));
    setModel(document);
    setItemDelegate(new LinePainter(check, run, this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(check, &ProgramCheck::checked, viewport(), qOverload<>(&QWidget::update));
    connect(run, &ProgramRun::changed, viewport(), qOverload<>(&QWidget::update));
    connect(document, &ProgramDocument::contentsChanged, this, &LineList::lineChanged);
}

void LineList::setLine(int line)
{
    const int nearest = std::min(line, model()->rowCount() - 1);
    setCurrentIndex(model()->index(std::max(nearest, 0), 0));
    scrollTo(currentIndex());
}

void LineList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    emit lineChanged();
}

void LineList::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (indexAt(event->pos()).isValid())
        emit editWanted();
}

} // namespace welmo::pendant
