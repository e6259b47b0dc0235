#include "support/finger.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QScrollArea>
#include <QSpinBox>
#include <QTest>
#include <QWindow>

namespace testsupport {

OutOfReach::OutOfReach(const QString &why)
    : std::runtime_error(why.toStdString())
{ }

namespace finger {

namespace {

QString describe(const QWidget *widget)
{
    const auto *type = widget->metaObject()->className();
    return QStringLiteral("%1 '%2'").arg(QString::fromLatin1(type), widget->objectName());
}

void scrollIntoSight(QWidget *target)
{
    for (QWidget *above = target->parentWidget(); above; above = above->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(above))
            area->ensureWidgetVisible(target);
    }
    QCoreApplication::processEvents();
}

void touchAt(QWidget *target, const QPoint &point)
{
    QWidget *window = target->window();
    const QPoint at = target->mapTo(window, point);
    const QWidget *hit = window->childAt(at);
    if (hit != target && !(hit && target->isAncestorOf(hit)))
        throw OutOfReach(
            describe(target)
            + (hit ? " is covered by " + describe(hit) : QStringLiteral(" is out of sight")));
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, at);
}

void press(QWidget *field, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(field->window()->windowHandle(), key, modifiers);
}

} // namespace

void touch(QWidget *target)
{
    if (!target->isVisible())
        throw OutOfReach(describe(target) + " is not shown");
    if (!target->isEnabled())
        throw OutOfReach(describe(target) + " is disabled");
    scrollIntoSight(target);
    touchAt(target, target->rect().center());
}

void choose(QComboBox *combo, int row)
{
    if (row < 0 || row >= combo->count())
        throw OutOfReach(describe(combo) + " has no such row");
    // A combo ignores what is touched within the time of a double click after it opened.
    QApplication::setDoubleClickInterval(0);
    touch(combo);
    // What is chosen may take the whole window away.
    const QPointer<QAbstractItemView> view = combo->view();
    const QString who = describe(combo);
    if (!QTest::qWaitFor([view] { return view->isVisible(); }))
        throw OutOfReach(who + " did not open");
    const QModelIndex index =
        combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex());
    view->scrollTo(index);
    QCoreApplication::processEvents();
    touchAt(view->viewport(), view->visualRect(index).center());
    if (!QTest::qWaitFor([view] { return !view || !view->isVisible(); }))
        throw OutOfReach(who + " stayed open");
}

void type(QAbstractSpinBox *field, const QString &text)
{
    auto *line = field->findChild<QLineEdit *>();
    touch(line);
    press(line, Qt::Key_A, Qt::ControlModifier);
    for (const QChar letter : text)
        QTest::keyClick(line->window()->windowHandle(), letter.toLatin1());
    press(line, Qt::Key_Tab);
}

} // namespace finger

} // namespace testsupport
