#include "instructions/move/moveparamwidget.h"

#include <QSignalBlocker>

#include "data/orbodata.h"
#include "data/report.h"
#include "instructions/forms/weavedatadialog.h"
#include "instructions/move/pointreport.h"
#include "tl/charactercheck.h"
#include "tl/lineformat.h"
#include "tl/parsedline.h"
#include "ui_moveparamwidget.h"
#include "widgets/touchcombo.h"

using namespace welmo;

namespace {

// Selects the active entry, unless the user chose another one since it was last selected.
void follow(QComboBox *combo, const QString &active, QString *before)
{
    const int index = combo->findData(active);
    if (index >= 0 && (before->isEmpty() || combo->currentText() == *before))
        combo->setCurrentIndex(index);
    *before = active;
}

} // namespace

MoveParamWidget::MoveParamWidget(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::MoveParamWidget>())
{
    ui->setupUi(this);
    for (QComboBox *combo : {ui->cbxSpeed, ui->cbxZone, ui->cbxTool, ui->cbxWobj, ui->cbxWeaveData})
        makeTouchable(combo);
    connect(ui->cbxTool, &QComboBox::currentTextChanged, this, &MoveParamWidget::toolChanged);
    connect(ui->cbxWobj, &QComboBox::currentTextChanged, this, &MoveParamWidget::wobjChanged);
    connect(ui->btnWeaveDataDetail, &QPushButton::clicked, this,
            &MoveParamWidget::onBtnDetailClicked);
    fill(ui->cbxWeaveData, QStringList{tl::noWeave} + tl::weaveFileNames());
    refresh();
}

MoveParamWidget::~MoveParamWidget() = default;

// Item data and text are the same name in every language; look-ups use the item data.
void MoveParamWidget::fill(QComboBox *combo, const QStringList &names)
{
    if (offers(combo, names))
        return;
    const QString chosen = combo->currentText();
    {
        const QSignalBlocker blocker(combo);
        combo->clear();
        for (const QString &name : names)
            combo->addItem(name, name);
        chooseFirstNamed(combo);
        if (!chosen.isEmpty() && combo->findData(chosen) >= 0)
            combo->setCurrentIndex(combo->findData(chosen));
    }
    const QString now = combo->currentText();
    if (now == chosen)
        return;
    if (!chosen.isEmpty())
        report::warning(reporterFor(this),
                        tr("%1 is no longer in the project; %2 is chosen").arg(chosen, now));
    emit combo->currentTextChanged(now);
}

void MoveParamWidget::refresh()
{
    const auto variables = OrboData::getSpeedAndZoneList();
    fill(ui->cbxSpeed, variables.value(QStringLiteral("speed")));
    fill(ui->cbxZone, variables.value(QStringLiteral("zone")));
    fill(ui->cbxTool, OrboData::getToolList());
    fill(ui->cbxWobj, OrboData::getWobjList());
}

void MoveParamWidget::select(QComboBox *combo, const QString &name, const char *message)
{
    if (const int index = combo->findData(name); index >= 0)
        combo->setCurrentIndex(index);
    else
        report::error(reporterFor(this), tl::shown(message));
}

void MoveParamWidget::setSpeedText(const QString &text)
{
    select(ui->cbxSpeed, text, tl::messages::speed);
}

void MoveParamWidget::setZoneText(const QString &text)
{
    select(ui->cbxZone, text, tl::messages::zone);
}

void MoveParamWidget::setToolText(const QString &text)
{
    select(ui->cbxTool, text, tl::messages::tool);
}

void MoveParamWidget::setWobj(const QString &text)
{
    select(ui->cbxWobj, text, tl::messages::wobj);
}

void MoveParamWidget::setWeaveData(const QString &text)
{
    select(ui->cbxWeaveData, CharacterCheck::checkQuotationMarks(text), tl::messages::weaveData);
}

void MoveParamWidget::chooseActive()
{
    follow(ui->cbxTool, OrboData::getCurrentTool(), &m_activeTool);
    follow(ui->cbxWobj, OrboData::getCurrentWobj(), &m_activeWobj);
}

void MoveParamWidget::useTaught(const QString &tool, const QString &workObject)
{
    if (!tool.isEmpty())
        setToolText(tool);
    if (!workObject.isEmpty())
        setWobj(workObject);
}

QString MoveParamWidget::tool() const
{
    return ui->cbxTool->currentText();
}

QString MoveParamWidget::wobj() const
{
    return ui->cbxWobj->currentText();
}

QString MoveParamWidget::getParam() const
{
    const tl::MoveParameters parameters{ui->cbxSpeed->currentText(), ui->cbxZone->currentText(),
                                        tool(), wobj(), ui->cbxWeaveData->currentText()};
    return parameters.format();
}

void MoveParamWidget::onBtnDetailClicked()
{
    const QString name = ui->cbxWeaveData->currentText();
    if (name == tl::noWeave || m_detailsBlocked)
        return;
    auto *dialog = new WeaveDataDialog(this);
    dialog->initUI(name);
    connect(dialog, &QDialog::finished, this, [this, dialog] {
        dialog->isSaveClicked(); // not used: the line names the file either way
        setDetailsBlocked(false);
        dialog->deleteLater();
    });
    setDetailsBlocked(true);
    m_details = dialog;
    dialog->show(); // not modal, so that the robot can still be stopped
}

void MoveParamWidget::setDetailsBlocked(bool blocked)
{
    m_detailsBlocked = blocked;
    ui->cbxWeaveData->setEnabled(!blocked);
}

// Hides the dialog with its form: over another page it would not be clear what it edits.
void MoveParamWidget::hideEvent(QHideEvent *event)
{
    if (m_details)
        m_details->hide();
    QWidget::hideEvent(event);
}

void MoveParamWidget::showEvent(QShowEvent *event)
{
    if (m_details && m_detailsBlocked)
        m_details->show();
    QWidget::showEvent(event);
}
