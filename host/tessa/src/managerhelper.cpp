#include "tessa/managerhelper.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

#include "tessa/host.h"

namespace tessa {

namespace {

/// A message box counts Escape and closing as a press of its only button; this one does not.
class Question : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Cancel))
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
    // QMessageBox cannot be closed without a button that it counts as pressed.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    void closeEvent(QCloseEvent *event) override { QDialog::closeEvent(event); }
};

} // namespace

ManagerHelper::ManagerHelper(XService *service, QObject *parent)
    : QObject(parent)
    , m_controller(service)
{ }

ManagerHelper *ManagerHelper::instance()
{
    Host *host = Host::current();
    return host ? host->helper() : nullptr;
}

void ManagerHelper::registQrcAlias(const QString &name)
{
    m_theme.addAlias(name);
}

ThemeManager *ManagerHelper::themeManager()
{
    return &m_theme;
}

ControllerManager *ManagerHelper::controllerManager()
{
    return &m_controller;
}

void ManagerHelper::throwLog(const QObject *sender, const QString &level, const QString &text)
{
    m_log.append(sender, level, text);
    emit logThrown(sender, level, text);
}

bool ManagerHelper::execMsgOk(const QString &title, const QString &text, const QString &button)
{
    Question box(QMessageBox::Question, title, text, QMessageBox::NoButton,
                 QApplication::activeWindow());
    const QAbstractButton *ok = box.addButton(button, QMessageBox::AcceptRole);
    box.exec();
    return box.clickedButton() == ok;
}

} // namespace tessa
