#include "pendant/pages/pluginerrorpage.h"

#include <QLabel>
#include <QVBoxLayout>

#include "pendant/theme/look.h"

namespace welmo::pendant {

namespace {

void addFact(Card *card, const QString &caption, const QString &name, const QString &fact)
{
    card->body()->addSpacing(6);
    auto *label = card->addText(caption);
    label->setObjectName(QStringLiteral("lblCaption"));
    auto *value = card->addText(fact);
    value->setObjectName(name);
    value->setTextFormat(Qt::PlainText);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

} // namespace

PluginErrorPage::PluginErrorPage(const QString &path, const QString &reason, QWidget *parent)
    : HostPage(tr("Package error"), parent)
{
    auto *card = new Card(tr("The library could not be used"), this);
    addFact(card, tr("Library"), QStringLiteral("lblPluginPath"), path);
    addFact(card, tr("Reason"), QStringLiteral("lblPluginReason"), reason);
    card->body()->addSpacing(6);
    card->addText(tr("Build the package, or name another library with --module PATH, "
                     "and start the pendant again."));
    body()->addWidget(card);
    body()->addStretch(1);
}

} // namespace welmo::pendant
