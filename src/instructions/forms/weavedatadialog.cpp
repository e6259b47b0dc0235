#include "instructions/forms/weavedatadialog.h"

#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include "instructions/forms/weavewidget.h"

namespace {

constexpr int extraWidth = 40;
constexpr int extraHeight = 20;
constexpr int highest = 486;
constexpr int edge = 2;

} // namespace

WeaveDataDialog::WeaveDataDialog(QWidget *parent)
    : QDialog(parent)
    , scrollArea(new QScrollArea(this))
{
    setObjectName(QStringLiteral("WeaveDataDialog"));
    setWindowTitle(tr("WeaveDataDetails"));
    scrollArea->setObjectName(QStringLiteral("scrollArea"));
    scrollArea->setFrameShape(QFrame::NoFrame);
    auto *contents = new QWidget;
    contents->setObjectName(QStringLiteral("scrollAreaWidgetContents"));
    wgtWeaveData = new WeaveWidget(contents);
    wgtWeaveData->setObjectName(QStringLiteral("wgtWeaveData"));
    auto *inner = new QVBoxLayout(contents);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->addWidget(wgtWeaveData);
    scrollArea->setWidget(contents);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(edge, edge, edge, edge);
    outer->addWidget(scrollArea);
    connect(wgtWeaveData, &WeaveWidget::closeDialog, this, &QDialog::close);
    adjustDialogSize();
}

void WeaveDataDialog::initUI(const QString &name)
{
    wgtWeaveData->setCurrentFileNum(name);
    wgtWeaveData->setSaveClicked(false);
    wgtWeaveData->unableCbxFileNum();
}

void WeaveDataDialog::adjustDialogSize()
{
    scrollArea->setWidgetResizable(true);
    const QSize wanted = wgtWeaveData->sizeHint();
    resize(wanted.width() + extraWidth, qMin(wanted.height() + extraHeight, highest));
}

void WeaveDataDialog::paintEvent(QPaintEvent *event)
{
    QDialog::paintEvent(event);
    QPainter painter(this);
    painter.setPen(QPen(palette().text(), edge));
    painter.drawRect(rect().adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2));
}

bool WeaveDataDialog::isSaveClicked() const
{
    return wgtWeaveData->getSaveClicked();
}

QString WeaveDataDialog::getCurrentWeaveData() const
{
    return wgtWeaveData->getCurrentFileNum();
}
