#include "pendant/program/formpane.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>
#include <memory>

#include "pendant/program/formstart.h"
#include "pendant/program/lineform.h"
#include "pendant/program/seamform.h"
#include "pendant/program/writtenline.h"
#include "tessa/managerhelper.h"
#include "tessa/tlmanager.h"
#include "tl/normalform.h"
#include "tl/parse.h"

namespace welmo::pendant {

namespace {

QLabel *addLabel(QBoxLayout *layout, const char *name)
{
    auto *label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label, 1);
    return label;
}

// The save buttons with something to save, which a package marks.
QList<QAbstractButton *> buttonsToSave(const QWidget *form)
{
    QList<QAbstractButton *> buttons = form->findChildren<QAbstractButton *>();
    buttons.erase(
        std::remove_if(buttons.begin(), buttons.end(),
                       [](const auto *each) { return !each->property("edited").toBool(); }),
        buttons.end());
    return buttons;
}

void setTextOrHide(QLabel *label, const QString &text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

} // namespace

FormPane::FormPane(ProgramCheck *check, QWidget *parent)
    : QFrame(parent)
    , m_check(check)
    , m_area(new QScrollArea)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    addTop(layout);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    layout->addWidget(m_area, 100); // the area takes all height that the labels do not need
    m_files = addLabel(layout, "lblFormFiles");
    addButtons(layout);
}

void FormPane::addTop(QVBoxLayout *layout)
{
    auto *top = new QHBoxLayout;
    top->setSpacing(24);
    m_heading = addLabel(top, "lblCardHeading");
    m_heading->setWordWrap(false);
    top->setStretchFactor(m_heading, 0);
    m_syntax = addLabel(top, "lblCaption");
    layout->addLayout(top);
    m_old = addLabel(layout, "lblLineText");
    m_warning = addLabel(layout, "lblFormWarning");
}

void FormPane::addButtons(QVBoxLayout *layout)
{
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto *cancel = new QPushButton(tr("Back"));
    cancel->setObjectName(QStringLiteral("btnFormCancel"));
    m_accept = new QPushButton;
    m_accept->setObjectName(QStringLiteral("btnFormAccept"));
    m_goOn = new QPushButton(tr("Insert and go on"));
    m_goOn->setObjectName(QStringLiteral("btnFormGoOn"));
    buttons->addWidget(cancel);
    buttons->addWidget(m_goOn);
    buttons->addWidget(m_accept);
    layout->addLayout(buttons);
    connect(m_goOn, &QPushButton::clicked, this, [this] {
        m_goesOn = true;
        onAcceptClicked();
    });
    connect(cancel, &QPushButton::clicked, this, &FormPane::onCancelClicked);
    connect(m_accept, &QPushButton::clicked, this, [this] {
        m_goesOn = false;
        onAcceptClicked();
    });
}

void FormPane::openInsert(const QString &word, int line, const QString &above)
{
    m_inserts = true;
    m_word = word;
    m_before = {};
    const auto *manager = tessa::TlManager::getTlManager();
    const auto create = manager->insertWidgetCreators.value(word);
    const bool isSeam = word == seamWord;
    auto *form = create ? create(m_area->viewport())
        : isSeam        ? static_cast<tessa::BaseContentWidget *>(new SeamForm(m_area->viewport()))
                        : new LineForm(m_area->viewport());
    setTextOrHide(m_syntax, manager->syntaxTemplates.value(word));
    const QString name = word.isEmpty() ? tr("a line") : isSeam ? tr("a seam") : word;
    startFrom(form, above);
    show(form, tr("Insert %1 as line %2").arg(name).arg(line + 1), tr("Insert"));
    followFiles();
}

void FormPane::openEdit(const QString &text, int line, bool isFaithful)
{
    m_inserts = false;
    m_before = tl::parse(text);
    const auto *manager = tessa::TlManager::getTlManager();
    const QString word = m_before.word.text;
    const auto create = manager->propertyWidgetCreators.value(word);
    auto *form = create ? create(m_area->viewport()) : new LineForm(m_area->viewport());
    setTextOrHide(m_syntax, manager->syntaxTemplates.value(word));
    show(form, tr("Line %1").arg(line + 1), tr("Replace"));
    fill(isFaithful);
}

void FormPane::show(tessa::BaseContentWidget *form, const QString &heading, const QString &button)
{
    m_form = form;
    m_area->setWidget(form);
    m_goOn->setVisible(m_inserts);
    m_files->hide();
    m_goesOn = false;
    m_heading->setText(heading);
    m_accept->setText(button);
    setTextOrHide(m_old, m_before.text);
    warn(QString());
    form->setFocus();
}

// Fills the form and returns what it reports in the message log meanwhile.
QStringList FormPane::read(const QString &text)
{
    const auto told = std::make_shared<QStringList>();
    auto *helper = tessa::ManagerHelper::instance();
    const auto listening =
        connect(helper, &tessa::ManagerHelper::logThrown, this,
                [told](const QObject *, const QString &level, const QString &reason) {
                    if (level != QLatin1String("info"))
                        told->append(reason);
                });
    m_form->FillWith(text);
    disconnect(listening);
    return *told;
}

// If the form shows all of the line, its reports are about the files that the line names; the
// message log has them, so no warning is shown.
void FormPane::fill(bool isFaithful)
{
    const bool isText = qobject_cast<HostForm *>(m_form);
    QStringList reasons = read(isText ? m_before.text : m_before.code());
    const bool isWhole = isText || tl::keepsAll(m_before, m_form->ToString());
    if (!isFaithful)
        reasons = QStringList(tr("the file holds bytes here that are no text"));
    else if (isWhole)
        reasons.clear();
    else if (reasons.isEmpty())
        reasons.append(tl::normalCode(m_before).isNull() ? tr("it holds more than the form shows")
                                                         : tr("the form shows other values"));
    warn(reasons.join(QStringLiteral("; ")));
}

// Shows the content of the files that the form names, since a form with only a file's name does
// not.
void FormPane::followFiles()
{
    for (QComboBox *combo : m_form->findChildren<QComboBox *>())
        connect(combo, qOverload<int>(&QComboBox::currentIndexChanged), this, &FormPane::showFiles);
    showFiles();
}

void FormPane::showFiles()
{
    if (m_form && m_inserts)
        setTextOrHide(m_files, filesNamedIn(m_form));
}

void FormPane::warn(const QString &reason)
{
    setTextOrHide(m_warning,
                  reason.isEmpty()
                      ? QString()
                      : tr("The form did not take over all of this line: %1.").arg(reason));
    m_lost = reason;
}

// Adds the indentation and comment of the line, which the form did not see.
QString FormPane::around(const QString &written) const
{
    return m_before.before() + written + m_before.after();
}

void FormPane::onAcceptClicked()
{
    if (mayGo([this] { accept(); }))
        accept();
}

void FormPane::onCancelClicked()
{
    if (mayGo([this] { close(); }))
        close();
}

// False if the form holds unsaved values of files, and the operator is asked what to do with them.
bool FormPane::mayGo(const std::function<void()> &goOn)
{
    if (buttonsToSave(m_form).isEmpty())
        return true;
    auto *box = new QMessageBox(QMessageBox::Question, m_heading->text(),
                                tr("This form shows values of a file that are not saved."),
                                QMessageBox::NoButton, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    auto *save = box->addButton(tr("Save"), QMessageBox::AcceptRole);
    auto *drop = box->addButton(tr("Drop the changes"), QMessageBox::DestructiveRole);
    box->setEscapeButton(box->addButton(tr("Back to the form"), QMessageBox::RejectRole));
    box->setDefaultButton(save);
    connect(save, &QAbstractButton::clicked, this, [this, goOn] {
        if (saveFiles())
            goOn();
    });
    connect(drop, &QAbstractButton::clicked, this, goOn);
    box->open();
    return false;
}

// The form itself tells why something could not be saved.
bool FormPane::saveFiles()
{
    for (QAbstractButton *button : buttonsToSave(m_form))
        button->click();
    return buttonsToSave(m_form).isEmpty();
}

void FormPane::accept()
{
    const bool agrees = m_inserts ? m_form->CheckInsert() : m_form->CheckReplace();
    if (!agrees)
        return;
    const QString written = m_form->ToString();
    if (!qobject_cast<HostForm *>(m_form))
        check(written);
    else if (!m_lost.isEmpty() && written != m_before.text)
        ask(written, tr("The form did not take over all of the old line: %1.").arg(m_lost));
    else
        finish(written);
}

void FormPane::check(const QString &written)
{
    const QString text = around(written);
    const QString refusal = refusalOf(written, m_check);
    if (m_inserts && !refusal.isEmpty())
        setTextOrHide(m_warning, tr("This line cannot be inserted: %1.").arg(refusal));
    else if (!m_lost.isEmpty() && text != m_before.text)
        ask(text, tr("The form did not take over all of the old line: %1.").arg(m_lost));
    else if (!refusal.isEmpty())
        ask(text, tr("The new line could not be read again: %1.").arg(refusal));
    else
        finish(text);
}

void FormPane::ask(const QString &text, const QString &reason)
{
    const QString change =
        m_inserts ? tr("New: %1").arg(text) : tr("Old: %1\nNew: %2").arg(m_before.text, text);
    auto *box =
        new QMessageBox(QMessageBox::Question, m_heading->text(),
                        reason + QStringLiteral("\n\n") + change, QMessageBox::NoButton, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    auto *yes = box->addButton(m_accept->text(), QMessageBox::AcceptRole);
    connect(yes, &QAbstractButton::clicked, this, [this, text] { finish(text); });
    box->setEscapeButton(box->addButton(tr("Back to the form"), QMessageBox::RejectRole));
    box->open();
}

void FormPane::finish(const QString &text)
{
    close();
    emit accepted(text);
    if (m_goesOn)
        emit anotherWanted(m_word);
}

void FormPane::close()
{
    // Not deleted: the form may be handling a click on its own button, which closes the pane.
    m_area->takeWidget();
    m_form->hide();
    m_form->deleteLater();
    m_form = nullptr;
    emit closed();
}

} // namespace welmo::pendant
