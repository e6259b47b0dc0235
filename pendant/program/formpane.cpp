#include "pendant/program/formpane.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>

#include "pendant/program/lineform.h"
#include "tessa/managerhelper.h"
#include "tessa/tlmanager.h"
#include "tl/checker.h"
#include "tl/instruction.h"
#include "tl/normalform.h"

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

void setTextOrHide(QLabel *label, const QString &text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

// Forms know nothing of how a program is laid out.
QString indentOf(const QString &line)
{
    int length = 0;
    while (length < line.size() && line.at(length).isSpace())
        ++length;
    return line.left(length);
}

// Why the form's own reader would not take the line again; empty when it would.
QString refusal(const QString &text)
{
    for (const tl::Finding &finding : tl::Checker().checkLine(text, 0)) {
        if (finding.kind == tl::Finding::Kind::Refused)
            return finding.text();
    }
    return {};
}

} // namespace

FormPane::FormPane(QWidget *parent)
    : QFrame(parent)
    , m_area(new QScrollArea)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto *top = new QHBoxLayout;
    top->setSpacing(24);
    m_heading = addLabel(top, "lblCardHeading");
    m_heading->setWordWrap(false);
    top->setStretchFactor(m_heading, 0);
    m_syntax = addLabel(top, "lblCaption");
    layout->addLayout(top);
    m_old = addLabel(layout, "lblLineText");
    m_warning = addLabel(layout, "lblFormWarning");
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    layout->addWidget(m_area, 100); // the labels take no more than they need
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto *cancel = new QPushButton(tr("Back"));
    cancel->setObjectName(QStringLiteral("btnFormCancel"));
    m_accept = new QPushButton;
    m_accept->setObjectName(QStringLiteral("btnFormAccept"));
    buttons->addWidget(cancel);
    buttons->addWidget(m_accept);
    layout->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &FormPane::close);
    connect(m_accept, &QPushButton::clicked, this, &FormPane::onAcceptClicked);
}

void FormPane::openInsert(const QString &word, int line)
{
    m_before.clear();
    const auto *manager = tessa::TlManager::getTlManager();
    const auto create = manager->insertWidgetCreators.value(word);
    auto *form = create ? create(m_area->viewport()) : new LineForm(m_area->viewport());
    setTextOrHide(m_syntax, manager->syntaxTemplates.value(word));
    const QString name = word.isEmpty() ? tr("a line") : word;
    show(form, tr("Insert %1 as line %2").arg(name).arg(line + 1), tr("Insert"));
}

void FormPane::openEdit(const QString &text, int line, bool isFaithful)
{
    m_before = text.isNull() ? QLatin1String("") : text;
    const auto *manager = tessa::TlManager::getTlManager();
    const QString word = welmo::tl::firstWord(text).text;
    const auto create = manager->propertyWidgetCreators.value(word);
    auto *form = create ? create(m_area->viewport()) : new LineForm(m_area->viewport());
    setTextOrHide(m_syntax, manager->syntaxTemplates.value(word));
    show(form, tr("Line %1").arg(line + 1), tr("Replace"));
    fill(text, isFaithful);
}

void FormPane::show(tessa::BaseContentWidget *form, const QString &heading, const QString &button)
{
    m_form = form;
    m_area->setWidget(form);
    m_heading->setText(heading);
    m_accept->setText(button);
    setTextOrHide(m_old, m_before);
    warn(QString());
    form->setFocus();
}

// What the form tells in the message log while it reads is why it refused the line.
void FormPane::fill(const QString &text, bool isFaithful)
{
    QStringList reasons;
    auto *helper = tessa::ManagerHelper::instance();
    const auto listening =
        connect(helper, &tessa::ManagerHelper::logThrown, this,
                [&reasons](const QObject *, const QString &level, const QString &reason) {
                    if (level != QLatin1String("info"))
                        reasons.append(reason);
                });
    m_form->FillWith(text);
    disconnect(listening);
    const bool isText = qobject_cast<LineForm *>(m_form);
    if (!isFaithful)
        reasons.append(tr("the file holds bytes here that are no text"));
    else if (reasons.isEmpty() && !isText && welmo::tl::normalForm(text).isNull())
        reasons.append(tr("it holds more than the form shows"));
    else if (reasons.isEmpty() && !isText && !welmo::tl::keepsAll(text, m_form->ToString()))
        reasons.append(tr("the form shows other values"));
    warn(reasons.join(QStringLiteral("; ")));
}

void FormPane::warn(const QString &reason)
{
    setTextOrHide(m_warning,
                  reason.isEmpty()
                      ? QString()
                      : tr("The form did not take over all of this line: %1.").arg(reason));
    m_warning->setProperty("reason", reason);
}

void FormPane::onAcceptClicked()
{
    const bool agrees = m_before.isNull() ? m_form->CheckInsert() : m_form->CheckReplace();
    if (!agrees)
        return;
    const bool isText = qobject_cast<LineForm *>(m_form);
    const QString written = m_form->ToString();
    const QString text = isText ? written : indentOf(m_before) + written;
    const QString lost = m_warning->property("reason").toString();
    const QString refused = isText ? QString() : refusal(written);
    if (!lost.isEmpty() && text != m_before)
        ask(text, tr("The form did not take over all of the old line: %1.").arg(lost));
    else if (!refused.isEmpty())
        ask(text, tr("The new line could not be read again: %1.").arg(refused));
    else
        finish(text);
}

void FormPane::ask(const QString &text, const QString &reason)
{
    const QString change =
        m_before.isNull() ? tr("New: %1").arg(text) : tr("Old: %1\nNew: %2").arg(m_before, text);
    auto *box =
        new QMessageBox(QMessageBox::Question, m_heading->text(),
                        reason + QStringLiteral("\n\n") + change, QMessageBox::NoButton, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    auto *yes = box->addButton(m_accept->text(), QMessageBox::AcceptRole);
    box->setEscapeButton(box->addButton(tr("Back to the form"), QMessageBox::RejectRole));
    connect(yes, &QAbstractButton::clicked, this, [this, text] { finish(text); });
    box->open();
}

void FormPane::finish(const QString &text)
{
    close();
    emit accepted(text);
}

void FormPane::close()
{
    // The form is in the middle of a click of its own when a button of it closes the pane.
    m_area->takeWidget();
    m_form->hide();
    m_form->deleteLater();
    m_form = nullptr;
    emit closed();
}

} // namespace welmo::pendant
