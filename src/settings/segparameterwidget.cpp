#include "settings/segparameterwidget.h"

#include <QSignalBlocker>

#include "data/arcweldservice.h"
#include "data/orbodata.h"
#include "data/report.h"
#include "schema/filesets.h"
#include "ui_segparameterwidget.h"

using namespace welmo;

SegParameterWidget::SegParameterWidget(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::SegParameterWidget>())
{
    ui->setupUi(this);
    m_file = std::make_unique<FileForm>(this, schema::seg(), ui->cbxFileNumber, [] {});
    bindFields();
    m_file->addHint(this);
    m_file->showEdits(ui->btnSave);
    connect(ui->cbxFileNumber, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &SegParameterWidget::onCbxFileNumberSelectionChanged);
    connect(ui->btnCancel, &QPushButton::clicked, this, &SegParameterWidget::onBtnCancelClicked);
    connect(ui->btnSave, &QPushButton::clicked, this, &SegParameterWidget::onBtnSaveClicked);
    onProjectChanged(this, [this] {
        initVariant();
        m_file->refresh();
    });
}

SegParameterWidget::~SegParameterWidget() = default;

void SegParameterWidget::bindFields()
{
    const auto &set = schema::seg();
    FieldTable &f = m_file->fields();
    f.bind(set.fileName, ui->cbxFileNumber);
    f.bind(set.annotation, ui->ledtAnnotation);
    f.bind(set.segType, ui->cbxSegType);
    f.bind(set.nonWeldedSpeed, ui->cbxNonWeldedSpeed);
    f.bind(set.weldedDistance, ui->sbxWeldedDistance).unit(ui->lblWeldedDistanceUnit);
    f.bind(set.nonWeldedDistance, ui->sbxNonWeldedDistance).unit(ui->lblNonWeldedDistanceUnit);
}

void SegParameterWidget::init()
{
    initVariant();
    initUI();
    initParamValue();
}

void SegParameterWidget::initVariant()
{
    QComboBox *speeds = ui->cbxNonWeldedSpeed;
    const QSignalBlocker blocker(speeds);
    const QString chosen = speeds->currentText();
    speeds->clear();
    speeds->addItems(OrboData::getSpeedList());
    if (!chosen.isEmpty())
        speeds->setCurrentIndex(speeds->findText(chosen));
}

void SegParameterWidget::initUI()
{
    const QSignalBlocker blocker(ui->cbxFileNumber);
    const int present = qMax(0, ui->cbxFileNumber->currentIndex());
    m_file->prepare();
    ui->cbxFileNumber->setCurrentIndex(present);
}

void SegParameterWidget::initParamValue()
{
    m_file->start();
}

void SegParameterWidget::initPage()
{
    if (welmo::arcweld::isConnected())
        m_file->select();
}

QString SegParameterWidget::getFileNumber() const
{
    return ui->cbxFileNumber->currentText();
}

void SegParameterWidget::setFileNumber(const QString &name)
{
    if (!m_file->choose(name)) {
        report::error(this, tr("segdata format error"));
        return;
    }
    onCbxFileNumberSelectionChanged(ui->cbxFileNumber->currentIndex());
}

void SegParameterWidget::onCbxFileNumberSelectionChanged(int)
{
    if (welmo::arcweld::isConnected())
        m_file->select();
}

void SegParameterWidget::onBtnCancelClicked()
{
    setParam();
}

void SegParameterWidget::onBtnSaveClicked()
{
    if (!report::requireConnection())
        return;
    if (!m_file->maySave())
        return;
    if (saveParam() != 0)
        report::error(this, tr("save parameter fail"));
    else
        report::info(this, tr("save parameter succeed"));
}
