#include "pendant/window/editmarker.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QPainter>
#include <QWidget>

#include "vu/xtheme.h"

namespace welmo::pendant {

namespace {

constexpr int barWidth = 5;
const char *const propertyName = "edited";

/// A child of the marked widget, so that it is moved, hidden and deleted with it.
class Mark : public QWidget
{
public:
    explicit Mark(QWidget *marked)
        : QWidget(marked)
        , m_isOnButton(qobject_cast<QAbstractButton *>(marked))
    {
        setObjectName(QStringLiteral("editMark"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        marked->installEventFilter(this);
        follow();
        show();
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            follow();
        return QWidget::eventFilter(object, event);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const auto &theme = vu::xtheme::current();
        QPainter painter(this);
        if (!m_isOnButton) {
            painter.fillRect(rect(), theme.color(QStringLiteral("warning")));
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(theme.color(QStringLiteral("white")), 2)); // the ink of its text
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 3, 3);
    }

private:
    void follow()
    {
        const QRect all = parentWidget()->rect();
        setGeometry(m_isOnButton ? all.adjusted(3, 3, -3, -3)
                                 : QRect(1, 1, barWidth, all.height() - 2));
    }

    const bool m_isOnButton;
};

void mark(QWidget *widget)
{
    auto *bar =
        widget->findChild<QWidget *>(QStringLiteral("editMark"), Qt::FindDirectChildrenOnly);
    const bool edited = widget->property(propertyName).toBool();
    if (edited && !bar)
        new Mark(widget);
    else if (bar)
        bar->setVisible(edited);
}

} // namespace

EditMarker::EditMarker(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool EditMarker::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange && object->isWidgetType()
        && static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == propertyName)
        mark(static_cast<QWidget *>(object));
    return false;
}

} // namespace welmo::pendant
