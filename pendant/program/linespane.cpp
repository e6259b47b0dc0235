#include "pendant/program/linespane.h"

#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "pendant/program/actionbar.h"
#include "pendant/program/formpane.h"
#include "pendant/program/linelist.h"
#include "pendant/program/programcheck.h"
#include "pendant/program/programdocument.h"
#include "pendant/program/programrun.h"
#include "pendant/theme/look.h"
#include "tessa/tlmanager.h"

namespace welmo::pendant {

LinesPane::LinesPane(ProgramDocument *document, ProgramCheck *check, ProgramRun *run,
                     QWidget *parent)
    : QFrame(parent)
    , m_document(document)
    , m_check(check)
    , m_run(run)
    , m_list(new LineList(document, check, run, this))
    , m_menu(new QMenu(this))
    , m_detail(new QLabel(this))
    , m_findings(new QPushButton(this))
    , m_bar(makeBar())
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_detail);
    m_detail->setObjectName(QStringLiteral("lblFinding"));
    m_detail->setTextFormat(Qt::PlainText);
    m_detail->setWordWrap(true);
    m_findings->setObjectName(QStringLiteral("btnNextFinding"));
    connect(m_findings, &QPushButton::clicked, this, &LinesPane::showNextFinding);
    m_menu->setObjectName(QStringLiteral("mnuInsert"));
    connect(m_list, &LineList::lineChanged, this, &LinesPane::refresh);
    connect(m_list, &LineList::editWanted, this, &LinesPane::edit);
    connect(check, &ProgramCheck::checked, this, &LinesPane::refreshFindings);
    connect(run, &ProgramRun::changed, this, &LinesPane::followRun);
    connect(document->undoStack(), &QUndoStack::indexChanged, this, &LinesPane::refresh);
    setFocusProxy(m_list);
    m_list->setLine(0);
    refresh();
    refreshFindings();
}

ActionBar *LinesPane::makeBar()
{
    auto *bar = new ActionBar(this);
    const auto add = [&](const char *picture, const QString &text, const char *name,
                         const QKeySequence &key, void (LinesPane::*slot)()) {
        return bar->addIcon(QLatin1String(picture), text, name, key, this, this, slot);
    };
    m_insert = add("insert", tr("Insert"), "InsertLine", Qt::Key_Insert, &LinesPane::openMenu);
    m_edit = add("edit", tr("Edit"), "EditLine", Qt::Key_Return, &LinesPane::edit);
    m_remove = add("remove", tr("Delete"), "RemoveLine", QKeySequence::Delete, &LinesPane::remove);
    m_up = add("up", tr("Up"), "LineUp", QStringLiteral("Alt+Up"), &LinesPane::moveUp);
    m_down = add("down", tr("Down"), "LineDown", QStringLiteral("Alt+Down"), &LinesPane::moveDown);
    m_undo = add("undo", tr("Undo"), "Undo", QKeySequence::Undo, &LinesPane::undo);
    m_redo = add("redo", tr("Redo"), "Redo", QKeySequence::Redo, &LinesPane::redo);
    return bar;
}

int LinesPane::line() const
{
    return m_list->line();
}

void LinesPane::setLine(int line)
{
    m_list->setLine(line);
}

// Filled when it opens, since all packages have registered their instructions by then.
void LinesPane::fillMenu()
{
    m_menu->clear();
    const auto *manager = tessa::TlManager::getTlManager();
    for (const auto &[label, key] : manager->instructionGroups) {
        m_menu->addAction(label)->setEnabled(false);
        for (const QString &word : manager->groupMembers.value(key))
            m_menu->addAction(word)->setData(word);
    }
    m_menu->addSeparator();
    m_menu->addAction(tr("Whole seam"))->setData(seamWord);
    m_menu->addAction(tr("Other line"))->setData(QString());
}

void LinesPane::openMenu()
{
    fillMenu();
    const int line = m_document->rowCount() == 0 ? 0 : m_list->line() + 1;
    m_menu->disconnect(this);
    connect(m_menu, &QMenu::triggered, this, [this, line](const QAction *chosen) {
        emit insertWanted(chosen->data().toString(), line);
    });
    m_menu->popup(m_list->mapToGlobal(QPoint(0, 0)));
}

void LinesPane::edit()
{
    if (m_edit->isEnabled())
        emit editWanted(m_list->line());
}

void LinesPane::remove()
{
    const int line = m_list->line();
    m_document->removeLine(line);
    m_list->setLine(line);
}

void LinesPane::move(int step)
{
    const int line = m_list->line();
    m_document->moveLine(line, line + step);
    m_list->setLine(line + step);
}

void LinesPane::undo()
{
    m_document->undoStack()->undo();
}

void LinesPane::redo()
{
    m_document->undoStack()->redo();
}

void LinesPane::showNextFinding()
{
    m_list->setLine(m_check->nextAfter(m_list->line()));
}

void LinesPane::followRun()
{
    if (m_run->line() >= 0 && m_run->isUnderWay())
        m_list->scrollTo(m_document->index(m_run->line()));
    refresh();
}

void LinesPane::refresh()
{
    const int line = m_list->line();
    const int count = m_document->rowCount();
    const bool isFree = !m_run->isUnderWay();
    const bool hasLine = isFree && line >= 0;
    m_insert->setEnabled(isFree);
    m_edit->setEnabled(hasLine);
    m_remove->setEnabled(hasLine);
    m_up->setEnabled(hasLine && line > 0);
    m_down->setEnabled(hasLine && line < count - 1);
    m_undo->setEnabled(isFree && m_document->undoStack()->canUndo());
    m_redo->setEnabled(isFree && m_document->undoStack()->canRedo());
    m_undo->setToolTip(m_document->undoStack()->undoText());
    m_redo->setToolTip(m_document->undoStack()->redoText());
    const QString finding = m_check->textAt(line);
    m_detail->setText(count == 0 ? tr("The program is empty: insert a line, or open a program.")
                                 : finding);
    // Queued: if the list changed its height during a touch, another line would be chosen.
    QMetaObject::invokeMethod(this, &LinesPane::showDetail, Qt::QueuedConnection);
    setStyleWord(m_detail, "finding", finding.isEmpty() ? QString() : QStringLiteral("yes"));
}

void LinesPane::showDetail()
{
    const QModelIndex chosen = m_list->currentIndex();
    const bool isSeen = m_list->viewport()->rect().intersects(m_list->visualRect(chosen));
    m_detail->setVisible(!m_detail->text().isEmpty());
    layout()->activate();
    if (isSeen) // kept visible although the list's height changed
        m_list->scrollTo(chosen);
}

void LinesPane::refreshFindings()
{
    const int count = m_check->count();
    m_findings->setText(count == 0       ? tr("Nothing found")
                            : count == 1 ? tr("1 finding")
                                         : tr("%1 findings").arg(count));
    m_findings->setEnabled(count > 0);
    setStyleWord(m_findings, "verdict",
                 count == 0 ? QStringLiteral("good") : QStringLiteral("bad"));
    refresh();
}

} // namespace welmo::pendant
