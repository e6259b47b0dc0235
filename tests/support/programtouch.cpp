#include "support/programtouch.h"

#include <QListView>
#include <QMenu>
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

} // namespace

ProgramTouch::ProgramTouch(TestPendant &pendant)
    : m_pendant(pendant)
{
    pendant.open("program");
}

void ProgramTouch::open(const QString &name)
{
    m_pendant.click("btnOpenProgram");
    auto *list = m_pendant.find<QListView>("lstFiles");
    const QAbstractItemModel *model = list->model();
    const auto found = model->match(model->index(0, 0), Qt::DisplayRole, name);
    if (found.isEmpty())
        throw OutOfReach("there is no program " + name);
    touchRow(list, found.first().row());
    m_pendant.click("btnFileAccept");
}

void ProgramTouch::saveAs(const QString &name)
{
    m_pendant.click("btnSaveProgramAs");
    auto *field = m_pendant.find<QLineEdit>("ledtFileName");
    field->selectAll();
    QTest::keyClicks(field, name);
    m_pendant.click("btnFileAccept");
}

void ProgramTouch::choose(int line)
{
    touchRow(m_pendant.find<QListView>("lstLines"), line - 1);
}

void ProgramTouch::insert(const QString &instruction)
{
    m_pendant.click("btnInsertLine");
    auto *menu = m_pendant.find<QMenu>("mnuInsert");
    for (QAction *action : menu->actions()) {
        if (action->text() == instruction && action->isEnabled())
            return QTest::mouseClick(menu, Qt::LeftButton, {},
                                     menu->actionGeometry(action).center());
    }
    throw OutOfReach("the menu has no " + instruction);
}

void ProgramTouch::answer(const QString &button)
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    for (QAbstractButton *candidate : box ? box->buttons() : QList<QAbstractButton *>()) {
        if (candidate->text() == button)
            return finger::touch(candidate);
    }
    throw OutOfReach("no question has the answer " + button);
}

bool ProgramTouch::isAsked() const
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

QString ProgramTouch::line(int line) const
{
    return m_pendant.find<QListView>("lstLines")->model()->index(line - 1, 0).data().toString();
}

int ProgramTouch::lineCount() const
{
    return m_pendant.find<QListView>("lstLines")->model()->rowCount();
}

QString ProgramTouch::title() const
{
    return m_pendant.find<QLabel>("lblPageTitle")->text();
}

} // namespace testsupport
