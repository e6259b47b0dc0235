#include "settings/weaveeditor.h"

#include <cmath>

#include "data/arcweldservice.h"
#include "data/report.h"
#include "data/units.h"
#include "ui_weaveeditor.h"

using namespace welmo;

namespace {

enum Reference { Length, Period };
enum Pattern { NoWeaving, TriangularPattern, Sine, Circular, FigureEight };
enum Elevation { VPattern, TriangularElevation };
enum DwellType { RobotStay, WeaveStay };

// The boxes hold two decimals; counting in hundredths keeps the rules free of rounding.
qint64 hundredths(double value)
{
    return std::llround(value * 100);
}

} // namespace

WeaveEditor::WeaveEditor(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::WeaveEditor>())
{
    ui->setupUi(this);
}

WeaveEditor::~WeaveEditor() = default;

void WeaveEditor::initUI(QObject *owner, const Home &home)
{
    m_owner = owner;
    m_file = std::make_unique<FileForm>(owner, sets::weave(), ui->cbxWeaveFileNumber,
                                        [this] { applyRules(); });
    declareFields(m_file->fields(), home);
    initControl(home);
    initConnect();
    m_file->start();
}

void WeaveEditor::declareFields(FieldTable &f, const Home &home)
{
    const Range degrees{-90, 90};
    f.fileName("name", ui->cbxWeaveFileNumber);
    f.text("annotation", ui->ledtWeaveAnnotation);
    // Decides the range in which the frequency below is shown.
    f.choice("weaving_reference", ui->cbxWeaveStandard, choices::weaveReferences(), "cycle")
        .whenShown([this] { onStandardTypeChanged(ui->cbxWeaveStandard->currentIndex()); });
    f.choice("pattern", ui->cbxWeaveShape, choices::weavePatterns(), "triangular");
    f.real("weave_length_frequency", ui->sbxWeaveLength_Frequency, {0.1, 5.0},
           home.defaultFrequency);
    f.real("amplitude.left", ui->sbxWeaveAmplitude, {0.1, 100}, 0.1)
        .alsoStoredAs("amplitude.right")
        .unit(ui->lblWeaveAmplitudeUnit, units::mm);
    f.choice("dwell_type", ui->cbxWeaveStayType, choices::weaveDwellTypes(), "robot_stay");
    f.integers("dwell_time", {ui->sbxWeaveLeftStay, ui->sbxWeaveCenterStay, ui->sbxWeaveRightStay},
               {0, 10000});
    f.real("radius", ui->sbxWeaveRadius, {0.1, 100}, 0.1).unit(ui->lblWeaveRadiusUnit, units::mm);
    f.choice("phase_invert", ui->cbxWeaveWaveformDirection, choices::waveformDirections(), false);
    // Remembers or puts back the angles before the file's own are shown.
    f.choice("elevation_type", ui->cbxWeaveElevationType, choices::elevationTypes(), "v_pattern")
        .whenShown([this] { onElevationTypeChanged(ui->cbxWeaveElevationType->currentIndex()); });
    f.real("elevation_angle.left", ui->sbxWeaveLeftElevation, degrees, 0)
        .unit(ui->lblWeaveLeftElevationUnit, units::degree);
    f.real("elevation_angle.right", ui->sbxWeaveRightElevation, degrees, 0)
        .unit(ui->lblWeaveRightElevationUnit, units::degree);
    f.real("inclination_angle", ui->sbxWeaveInclination, degrees, 0)
        .unit(ui->lblWeaveInclinationUnit, units::degree);
}

void WeaveEditor::initControl(const Home &home)
{
    m_file->prepare();
    ui->cbxWeaveStandard->setCurrentIndex(Period);
    ui->cbxWeaveShape->setCurrentIndex(TriangularPattern);
    // What this build leaves to the file: shown, not edited.
    for (QWidget *widget : std::initializer_list<QWidget *>{
             ui->cbxWeaveStandard, ui->cbxWeaveShape, ui->cbxWeaveWaveformDirection,
             ui->cbxWeaveElevationType, ui->sbxWeaveLeftElevation, ui->sbxWeaveRightElevation,
             ui->sbxWeaveInclination, ui->cbxWeaveStayType, ui->sbxWeaveCenterStay})
        widget->setEnabled(false);
    for (QDoubleSpinBox *box :
         {ui->sbxWeaveLeftElevation, ui->sbxWeaveRightElevation, ui->sbxWeaveInclination})
        box->setValue(0);
    ui->sbxWeaveCenterStay->setValue(0);
    ui->lblTriangle->setPixmap(QPixmap(QStringLiteral(":/welmo/images/TriangleWeave.png")));
    ui->lblSine->setPixmap(QPixmap(QStringLiteral(":/welmo/images/SinWeave.png")));
    if (!home.titlesAndPictures)
        hideTitlesAndPictures();
}

void WeaveEditor::hideTitlesAndPictures()
{
    for (QGroupBox *box :
         {ui->gbxWeaveSetting, ui->gbxWeaveAngleSetting, ui->gbxWeaveStaySetting}) {
        box->setTitle(QString());
        box->setProperty("func", "untitled"); // the style keeps no room for a title
    }
    ui->wgtPreview->hide();
}

void WeaveEditor::initConnect()
{
    const auto follow = [this](QComboBox *combo, void (WeaveEditor::*slot)(int)) {
        connect(combo, qOverload<int>(&QComboBox::currentIndexChanged), this, slot);
    };
    follow(ui->cbxWeaveFileNumber, &WeaveEditor::onFileNumberChanged);
    follow(ui->cbxWeaveStandard, &WeaveEditor::onStandardTypeChanged);
    follow(ui->cbxWeaveShape, &WeaveEditor::onPatternChanged);
    follow(ui->cbxWeaveElevationType, &WeaveEditor::onElevationTypeChanged);
    follow(ui->cbxWeaveStayType, &WeaveEditor::onStayTypeChanged);
    connect(ui->btnCancel, &QPushButton::clicked, this, &WeaveEditor::onCancelButtonClicked);
    connect(ui->btnSave, &QPushButton::clicked, this, &WeaveEditor::onSaveButtonClicked);
}

void WeaveEditor::applyRules()
{
    onStandardTypeChanged(ui->cbxWeaveStandard->currentIndex());
    onPatternChanged(ui->cbxWeaveShape->currentIndex());
    onElevationTypeChanged(ui->cbxWeaveElevationType->currentIndex());
    onStayTypeChanged(ui->cbxWeaveStayType->currentIndex());
}

void WeaveEditor::onFileNumberChanged(int)
{
    if (welmo::arcweld::isConnected())
        m_file->select();
}

void WeaveEditor::onStandardTypeChanged(int index)
{
    QDoubleSpinBox *box = ui->sbxWeaveLength_Frequency;
    // Whenever a file is shown this is called twice, and a box that is set up anew formats anew.
    if (index == m_standard) {
        switchStayTime();
        return;
    }
    m_standard = index;
    if (index == Length) {
        ui->lblWeaveLength_Frequency->setText(tr("Weave Length"));
        ui->lblWeaveLength_FrequencyUnit->setText(units::mm);
        box->setDecimals(0);
        box->setRange(1, 500);
        box->setSingleStep(1);
    } else if (index == Period) {
        ui->lblWeaveLength_Frequency->setText(tr("Weave Frequency"));
        ui->lblWeaveLength_FrequencyUnit->setText(units::hertz);
        box->setDecimals(2);
        box->setRange(0.1, 5.0);
        box->setSingleStep(0.1);
    }
    switchStayTime();
}

void WeaveEditor::switchStayTime()
{
    const bool distance = ui->cbxWeaveStandard->currentIndex() == Length
        && ui->cbxWeaveStayType->currentIndex() == WeaveStay;
    for (QLabel *label :
         {ui->lblWeaveLeftStayUnit, ui->lblWeaveCenterStayUnit, ui->lblWeaveRightStayUnit})
        label->setText(distance ? units::mm : units::ms);
}

void WeaveEditor::onPatternChanged(int index)
{
    const bool round = index == Circular || index == FigureEight;
    ui->lblWeaveRadius->setVisible(round);
    ui->sbxWeaveRadius->setVisible(round);
    ui->lblWeaveRadiusUnit->setVisible(round);
    ui->gbxWeaveStaySetting->setEnabled(index == TriangularPattern || index == Sine);
}

void WeaveEditor::onElevationTypeChanged(int index)
{
    if (index < 0)
        return;
    QDoubleSpinBox *left = ui->sbxWeaveLeftElevation;
    QDoubleSpinBox *right = ui->sbxWeaveRightElevation;
    const bool vPattern = index == VPattern;
    // What is remembered are angles: a "V-Pattern" file that is shown again must not replace them
    // with its zeros.
    const bool angles = left->value() != 0 || right->value() != 0;
    if (vPattern && (angles || !m_vPattern)) {
        m_leftElevation = left->value();
        m_rightElevation = right->value();
    } else if (!vPattern && m_vPattern) {
        left->setValue(m_leftElevation);
        right->setValue(m_rightElevation);
    }
    m_vPattern = vPattern;
    for (QDoubleSpinBox *box : {left, right}) {
        if (vPattern && box->value() != 0)
            box->setValue(0);
        box->setEnabled(!vPattern);
    }
}

void WeaveEditor::onStayTypeChanged(int)
{
    switchStayTime();
}

bool WeaveEditor::validateParam()
{
    const qint64 product = hundredths(ui->sbxWeaveLength_Frequency->value())
        * hundredths(ui->sbxWeaveAmplitude->value());
    if (ui->cbxWeaveStandard->currentIndex() == Period && product > qint64(50) * 100 * 100) {
        report::error(m_owner,
                      tr("The frequency multiplied by the amplitude must be less than 50"));
        return false;
    }
    const qint64 sum = hundredths(ui->sbxWeaveLeftElevation->value())
        + hundredths(ui->sbxWeaveRightElevation->value());
    if (ui->cbxWeaveElevationType->currentIndex() == TriangularElevation
        && (sum == 0 || std::abs(sum) == qint64(180) * 100)) {
        report::error(m_owner, tr("The sum of the elevation angles must not be 0, 180, or -180"));
        return false;
    }
    return true;
}

void WeaveEditor::onCancelButtonClicked()
{
    m_file->show();
    emit cancelled();
}

void WeaveEditor::onSaveButtonClicked()
{
    if (!welmo::arcweld::isConnected()) {
        report::error(m_owner, tr("tessa not connected"));
        return;
    }
    if (!validateParam())
        return;
    if (m_file->save() != 0) {
        report::error(m_owner, tr("save parameter error"));
        return;
    }
    report::info(m_owner, tr("save parameter succeed"));
    emit saved();
}
