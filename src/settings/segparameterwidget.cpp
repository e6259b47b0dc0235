#include "settings/segparameterwidget.h"

#include <QSignalBlocker>
#include <limits>

#include "data/arcweldservice.h"
#include "data/orbodata.h"
#include "data/report.h"
#include "data/units.h"
#include "ui_segparameterwidget.h"

using namespace welmo;

SegParameterWidget::SegParameterWidget(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::SegParameterWidget>())
{
    ui->setupUi(this);
    m_file = std::make_unique<FileForm>(this, sets::seg(), ui->cbxFileNumber, [] {});
    declareFields();
    connect(ui->cbxFileNumber, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &SegParameterWidget::onCbxFileNumberSelectionChanged);
    connect(ui->btnCancel, &QPushButton::clicked, this, &SegParameterWidget::onBtnCancelClicked);
    connect(ui->btnSave, &QPushButton::clicked, this, &SegParameterWidget::onBtnSaveClicked);
}

SegParameterWidget::~SegParameterWidget() = default;

void SegParameterWidget::declareFields()
{
    const Range distance{0.1, std::numeric_limits<double>::max()};
    FieldTable &f = m_file->fields();
    f.fileName("name", ui->cbxFileNumber);
    f.text("annotation", ui->ledtAnnotation);
    f.choice("seg_type", ui->cbxSegType, choices::segTypes(), "normal");
    f.name("non_welded_speed", ui->cbxNonWeldedSpeed, "v5").keepPresentItem();
    f.real("welded_distance", ui->sbxWeldedDistance, distance, 0.1)
        .unit(ui->lblWeldedDistanceUnit, units::mm);
    f.real("non_welded_distance", ui->sbxNonWeldedDistance, distance, 0.1)
        .unit(ui->lblNonWeldedDistanceUnit, units::mm);
}

void SegParameterWidget::init()
{
    initVariant();
    initUI();
    initParamValue();
}

void SegParameterWidget::initVariant()
{
    const QSignalBlocker blocker(ui->cbxNonWeldedSpeed);
    ui->cbxNonWeldedSpeed->clear();
    ui->cbxNonWeldedSpeed->addItems(OrboData::getSpeedList());
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
    if (!welmo::arcweld::isConnected()) {
        report::error(this, tr("tessa not connected"));
        return;
    }
    if (saveParam() != 0)
        report::error(this, tr("save parameter fail"));
    else
        report::info(this, tr("save parameter succeed"));
}
