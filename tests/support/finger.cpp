#include "support/finger.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QWindow>
#include <QtTest>

namespace testsupport {

namespace finger {

namespace {

QString describe(const QWidget *widget)
{
    const auto *type = widget->metaObject()->className();
    return QStringLiteral("%1 '%2'").arg(QString::fromLatin1(type), widget->objectName());
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

} // namespace

void touch(QWidget *target)
{
    if (!target->isVisible() || !target->isEnabled())
        throw OutOfReach(describe(target) + " is not shown, or disabled");
    for (QWidget *above = target->parentWidget(); above; above = above->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(above))
            area->ensureWidgetVisible(target);
    }
    QCoreApplication::processEvents();
    touchAt(target, target->rect().center());
}

void choose(QComboBox *combo, int row)
{
    if (row < 0 || row >= combo->count())
        throw OutOfReach(describe(combo) + " has no such row");
    // A combo ignores touches during a double-click interval after it opened.
    QApplication::setDoubleClickInterval(0);
    touch(combo);
    // A choice may close the window.
    const QPointer<QAbstractItemView> view = combo->view();
    const QString who = describe(combo);
    if (!QTest::qWaitFor([view] { return view->isVisible(); }))
        throw OutOfReach(who + " did not open");
    const QModelIndex index =
        combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex());
    view->scrollTo(index);
    QCoreApplication::processEvents();
    if (view->visualRect(index).height() < smallestTouch)
        throw OutOfReach(who + " has rows that are too low for a finger");
    touchAt(view->viewport(), view->visualRect(index).center());
    if (!QTest::qWaitFor([view] { return !view || !view->isVisible(); }))
        throw OutOfReach(who + " stayed open");
}

void type(QAbstractSpinBox *field, const QString &text)
{
    auto *line = field->findChild<QLineEdit *>();
    touch(line);
    QWindow *window = line->window()->windowHandle();
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    for (const QChar letter : text)
        QTest::keyClick(window, letter.toLatin1());
    QTest::keyClick(window, Qt::Key_Tab);
}

} // namespace finger

} // namespace testsupport
