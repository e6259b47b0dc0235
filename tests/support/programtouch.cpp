#include "support/programtouch.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QWindow>

#include "support/testpendant.h"

namespace testsupport {

namespace {

void touchRow(QListView *list, int row)
{
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    QCoreApplication::processEvents();
    const QPoint at = list->viewport()->mapTo(list->window(), list->visualRect(index).center());
    QTest::mouseClick(list->window()->windowHandle(), Qt::LeftButton, {}, at);
}

QMessageBox *question()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        auto *box = qobject_cast<QMessageBox *>(window);
        if (box && box->isVisible())
            return box;
    }
    return nullptr;
}

} // namespace

ProgramTouch::ProgramTouch(TestPendant &pendant)
    : m_pendant(pendant)
{
    pendant.open(QStringLiteral("program"));
}

void ProgramTouch::open(const QString &name)
{
    m_pendant.click(QStringLiteral("btnOpenProgram"));
    auto *list = m_pendant.find<QListView>(QStringLiteral("lstFiles"));
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        if (list->model()->index(row, 0).data().toString().startsWith(name)) {
            touchRow(list, row);
            return m_pendant.click(QStringLiteral("btnFileAccept"));
        }
    }
    throw OutOfReach("there is no program " + name);
}

void ProgramTouch::saveAs(const QString &name)
{
    m_pendant.click(QStringLiteral("btnSaveProgramAs"));
    auto *field = m_pendant.find<QLineEdit>(QStringLiteral("ledtFileName"));
    field->selectAll();
    QTest::keyClicks(field, name);
    m_pendant.click(QStringLiteral("btnFileAccept"));
}

void ProgramTouch::choose(int line)
{
    touchRow(m_pendant.find<QListView>(QStringLiteral("lstLines")), line - 1);
}

void ProgramTouch::insert(const QString &instruction)
{
    m_pendant.click(QStringLiteral("btnInsertLine"));
    auto *menu = m_pendant.find<QMenu>(QStringLiteral("mnuInsert"));
    for (QAction *action : menu->actions()) {
        if (action->text() == instruction && action->isEnabled()) {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            return;
        }
    }
    throw OutOfReach("the menu has no " + instruction);
}

void ProgramTouch::answer(const QString &button)
{
    QMessageBox *box = question();
    if (!box)
        throw OutOfReach(QStringLiteral("nothing is asked"));
    for (QAbstractButton *candidate : box->buttons()) {
        if (candidate->text() == button)
            return finger::touch(candidate);
    }
    throw OutOfReach("the question has no answer " + button);
}

bool ProgramTouch::isAsked() const
{
    return question();
}

QString ProgramTouch::line(int line) const
{
    const auto *model = m_pendant.find<QListView>(QStringLiteral("lstLines"))->model();
    return model->index(line - 1, 0).data().toString();
}

int ProgramTouch::lineCount() const
{
    return m_pendant.find<QListView>(QStringLiteral("lstLines"))->model()->rowCount();
}

QString ProgramTouch::title() const
{
    auto *page = m_pendant.find(QStringLiteral("lstLines"));
    while (page && !page->inherits("pendant::ProgramPage"))
        page = page->parentWidget();
    const auto *label = page ? page->findChild<QLabel *>(QStringLiteral("lblPageTitle")) : nullptr;
    return label ? label->text() : QString();
}

} // namespace testsupport
