#include "data/notreadhint.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QLabel>

#include "data/arcweldservice.h"

namespace welmo {

QLabel *addNotReadHint(QWidget *form)
{
    auto *hint = new QLabel(form);
    hint->setObjectName(QStringLiteral("lblNotRead"));
    hint->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    hint->hide();
    if (auto *layout = qobject_cast<QBoxLayout *>(form->layout()))
        layout->insertWidget(0, hint);
    return hint;
}

void showWhetherRead(QLabel *hint, bool isRead)
{
    if (!hint)
        return;
    hint->setText(arcweld::isConnected()
                      ? QCoreApplication::translate("FileForm", "not read")
                      : QCoreApplication::translate("FileForm", "not read: no link"));
    hint->setVisible(!isRead);
}

} // namespace welmo
