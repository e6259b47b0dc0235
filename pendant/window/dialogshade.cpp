#include "pendant/window/dialogshade.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QIcon>
#include <QMessageBox>
#include <QToolButton>

#include "pendant/theme/look.h"

namespace welmo::pendant {

namespace {

constexpr int symbolSize = 40;
constexpr int noSize = 44;

QString symbolOf(const QMessageBox *box)
{
    switch (box->icon()) {
    case QMessageBox::Critical:
        return QStringLiteral("widget/log_error");
    case QMessageBox::Warning:
        return QStringLiteral("widget/log_warning");
    default:
        return QStringLiteral("widget/log_info");
    }
}

// A box with one button takes no for an answer, too, and a finger has no Escape.
void addNo(QMessageBox *box)
{
    const QString name = QStringLiteral("btnNo");
    if (box->findChild<QToolButton *>(name))
        return;
    auto *no = new QToolButton(box);
    no->setObjectName(name);
    no->setText(QStringLiteral("✕"));
    no->setToolTip(DialogShade::tr("No"));
    no->setFixedSize(noSize, noSize);
    no->move(box->width() - noSize - 2, 2);
    no->show();
    QObject::connect(no, &QToolButton::clicked, box, &QMessageBox::reject);
}

} // namespace

DialogShade::DialogShade(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool DialogShade::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        if (auto *box = qobject_cast<QMessageBox *>(object))
            dim(box);
    } else if (event->type() == QEvent::Hide && object == m_box) {
        delete m_shade;
        m_box.clear();
    }
    return false;
}

void DialogShade::dim(QMessageBox *box)
{
    if (box->buttons().size() == 1)
        addNo(box);
    // The style rules' least width would cut off a longer text.
    for (QAbstractButton *button : box->buttons())
        button->setMinimumWidth(button->sizeHint().width());
    box->setIconPixmap(QIcon(themePixmap(symbolOf(box))).pixmap(symbolSize));
    QWidget *window = box->parentWidget() ? box->parentWidget()->window() : nullptr;
    if (!window || m_shade)
        return;
    m_box = box;
    m_shade = new QWidget(window);
    m_shade->setObjectName(QStringLiteral("pndShade"));
    m_shade->setAttribute(Qt::WA_StyledBackground);
    m_shade->setGeometry(window->rect());
    m_shade->show();
}

} // namespace welmo::pendant
