#include "pendant/pages/pointspanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include "pendant/state/projectpoints.h"

namespace welmo::pendant {

PointsPanel::PointsPanel(tessa::Host *host, QWidget *parent)
    : Card(tr("Points of the project"), parent)
    , m_points(new ProjectPoints(host, this))
    , m_list(new QListWidget(this))
    , m_detail(addText({}))
    , m_name(new QLineEdit(this))
{
    m_list->setObjectName(QStringLiteral("lstPoints"));
    m_detail->setObjectName(QStringLiteral("lblPointDetail"));
    m_name->setObjectName(QStringLiteral("ledtPointName"));
    m_name->setProperty("isName", true); // see FieldPads
    m_name->setAccessibleName(tr("Name of the point"));
    body()->insertWidget(body()->count() - 1, m_list, 1);
    body()->addWidget(m_name);
    auto *first = new QHBoxLayout;
    m_rename = addButton(first, QStringLiteral("btnRenamePoint"), tr("Rename"));
    m_copy = addButton(first, QStringLiteral("btnCopyPoint"), tr("Copy"));
    auto *second = new QHBoxLayout;
    m_touchUp = addButton(second, QStringLiteral("btnTouchUpPoint"), tr("Touch up"));
    m_remove = addButton(second, QStringLiteral("btnRemovePoint"), tr("Remove"));
    body()->addLayout(first);
    body()->addLayout(second);
    connect(m_list, &QListWidget::currentRowChanged, this, &PointsPanel::refresh);
    // Queued, so that it does not run in the middle of a change.
    connect(m_points, &ProjectPoints::changed, this, &PointsPanel::fill, Qt::QueuedConnection);
    connect(m_rename, &QPushButton::clicked, this, &PointsPanel::rename);
    connect(m_copy, &QPushButton::clicked, this, [this] { m_made = m_points->copy(chosen()); });
    connect(m_touchUp, &QPushButton::clicked, this, [this] {
        ask(tr("Is %1 to be where the robot is now?").arg(chosen()), tr("Touch up"),
            &ProjectPoints::touchUp);
    });
    connect(m_remove, &QPushButton::clicked, this, [this] {
        ask(tr("Remove the point %1? Programs that name it will not run.").arg(chosen()),
            tr("Remove"), &ProjectPoints::remove);
    });
    fill();
}

QPushButton *PointsPanel::addButton(QLayout *row, const QString &name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    row->addWidget(button);
    return button;
}

QString PointsPanel::chosen() const
{
    return m_list->currentItem() ? m_list->currentItem()->text() : QString();
}

void PointsPanel::fill()
{
    const QStringList names = m_points->names();
    QStringList shown;
    for (int row = 0; row < m_list->count(); ++row)
        shown.append(m_list->item(row)->text());
    if (shown == names)
        return refresh();
    const int row = m_list->currentRow();
    const int same = names.indexOf(m_made.isEmpty() ? chosen() : m_made);
    m_made.clear();
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    m_list->addItems(names);
    m_list->setCurrentRow(same >= 0 ? same : qBound(0, row, names.size() - 1));
    refresh();
}

void PointsPanel::refresh()
{
    const QString name = chosen();
    for (QWidget *widget : QWidgetList{m_name, m_rename, m_copy, m_touchUp, m_remove})
        widget->setEnabled(!name.isEmpty());
    m_detail->setText(name.isEmpty() ? tr("The project has no points.") : m_points->detail(name));
    if (name != std::exchange(m_shown, name))
        m_name->setText(name); // only for another point, to keep what is being typed
}

void PointsPanel::rename()
{
    const QString wanted = m_name->text();
    if (wanted != chosen() && m_points->rename(chosen(), wanted))
        m_made = wanted;
}

void PointsPanel::ask(const QString &question, const QString &yes,
                      bool (ProjectPoints::*act)(const QString &))
{
    auto *box = new QMessageBox(QMessageBox::Question, tr("Points of the project"), question,
                                QMessageBox::NoButton, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    auto *accept = box->addButton(yes, QMessageBox::AcceptRole);
    box->setEscapeButton(box->addButton(tr("Back"), QMessageBox::RejectRole));
    connect(accept, &QAbstractButton::clicked, this,
            [this, act, name = chosen()] { (m_points->*act)(name); });
    box->open();
}

} // namespace welmo::pendant
