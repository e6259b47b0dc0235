#include "settings/weaveeditor.h"

#include <cmath>

#include "data/arcweldservice.h"
#include "data/choices.h"
#include "data/report.h"
#include "ui_weaveeditor.h"
#include "widgets/pairfold.h"

namespace welmo {

namespace {

namespace codes = schema::codes;

// The boxes hold two decimals; counting in hundredths keeps the rules free of rounding.
qint64 hundredths(double value)
{
    return std::llround(value * 100);
}

bool isChosen(const QComboBox *combo, const char *code)
{
    return choices::isItem(combo, combo->currentIndex(), code);
}

} // namespace

WeaveEditor::WeaveEditor(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::WeaveEditor>())
{
    ui->setupUi(this);
    PairFold::follow(this);
}

WeaveEditor::~WeaveEditor() = default;

void WeaveEditor::initUI(QObject *owner, const Home &home)
{
    m_owner = owner;
    m_file = std::make_unique<FileForm>(owner, home.set, ui->cbxWeaveFileNumber,
                                        [this] { applyRules(); });
    bindFields(m_file->fields(), home.set);
    initControl(home);
    initConnect();
    initParamValue();
}

void WeaveEditor::bindFields(FieldTable &f, const schema::WeaveSet &set)
{
    f.bind(set.fileName, ui->cbxWeaveFileNumber);
    f.bind(set.annotation, ui->ledtWeaveAnnotation);
    // This decides the range of the frequency in a later row.
    f.bind(set.reference, ui->cbxWeaveStandard).whenShown([this] {
        onStandardTypeChanged(ui->cbxWeaveStandard->currentIndex());
    });
    f.bind(set.pattern, ui->cbxWeaveShape);
    f.bind(set.lengthOrFrequency, ui->sbxWeaveLength_Frequency);
    f.bind(set.amplitude, ui->sbxWeaveAmplitude).unit(ui->lblWeaveAmplitudeUnit);
    f.bind(set.dwellType, ui->cbxWeaveStayType);
    f.bind(set.dwellTime, {ui->sbxWeaveLeftStay, ui->sbxWeaveCenterStay, ui->sbxWeaveRightStay});
    f.bind(set.radius, ui->sbxWeaveRadius).unit(ui->lblWeaveRadiusUnit);
    f.bind(set.phaseInvert, ui->cbxWeaveWaveformDirection);
    // Remembers or restores the angles before the file's own are shown.
    f.bind(set.elevationType, ui->cbxWeaveElevationType).whenShown([this] {
        forgetOtherAngles();
        onElevationTypeChanged(ui->cbxWeaveElevationType->currentIndex());
    });
    f.bind(set.leftElevation, ui->sbxWeaveLeftElevation).unit(ui->lblWeaveLeftElevationUnit);
    f.bind(set.rightElevation, ui->sbxWeaveRightElevation).unit(ui->lblWeaveRightElevationUnit);
    f.bind(set.inclination, ui->sbxWeaveInclination).unit(ui->lblWeaveInclinationUnit);
}

void WeaveEditor::initControl(const Home &home)
{
    m_file->prepare();
    m_file->addHint(this);
    m_file->showEdits(ui->btnSave);
    choices::choose(ui->cbxWeaveStandard, codes::cycle);
    choices::choose(ui->cbxWeaveShape, codes::triangular);
    // Shown, but not offered for editing in this release.
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
        box->setProperty("func", QStringLiteral("untitled")); // the style keeps no room for a title
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
    if (arcweld::isConnected())
        m_file->select();
}

void WeaveEditor::onStandardTypeChanged(int index)
{
    QDoubleSpinBox *box = ui->sbxWeaveLength_Frequency;
    // Called twice for each file shown; setting up a box again would format its text again.
    if (index == m_standard) {
        switchStayTime();
        return;
    }
    m_standard = index;
    if (choices::isItem(ui->cbxWeaveStandard, index, codes::length)) {
        ui->lblWeaveLength_Frequency->setText(tr("Weave Length"));
        ui->lblWeaveLength_FrequencyUnit->setText(units::mm);
        box->setDecimals(0);
        box->setRange(1, 500);
        box->setSingleStep(1);
    } else if (choices::isItem(ui->cbxWeaveStandard, index, codes::cycle)) {
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
    const bool distance = isChosen(ui->cbxWeaveStandard, codes::length)
        && isChosen(ui->cbxWeaveStayType, codes::weaveStop);
    for (QLabel *label :
         {ui->lblWeaveLeftStayUnit, ui->lblWeaveCenterStayUnit, ui->lblWeaveRightStayUnit})
        label->setText(distance ? units::mm : units::ms);
}

void WeaveEditor::onPatternChanged(int index)
{
    const auto is = [&](const char *code) {
        return choices::isItem(ui->cbxWeaveShape, index, code);
    };
    const bool round = is(codes::circular) || is(codes::figureEight);
    ui->lblWeaveRadius->setVisible(round);
    ui->sbxWeaveRadius->setVisible(round);
    ui->lblWeaveRadiusUnit->setVisible(round);
    ui->gbxWeaveStaySetting->setEnabled(is(codes::triangular) || is(codes::sine));
}

void WeaveEditor::onElevationTypeChanged(int index)
{
    if (index < 0)
        return;
    QDoubleSpinBox *left = ui->sbxWeaveLeftElevation;
    QDoubleSpinBox *right = ui->sbxWeaveRightElevation;
    const bool vPattern = choices::isItem(ui->cbxWeaveElevationType, index, codes::vPattern);
    // Only angles are remembered: showing a "V-Pattern" file again must not replace them with its
    // zeros.
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

// The angles of one file must not be restored into the next.
void WeaveEditor::forgetOtherAngles()
{
    const QString file = m_file->data()->name();
    if (file == m_anglesOf)
        return;
    m_anglesOf = file;
    m_leftElevation = 0;
    m_rightElevation = 0;
    ui->sbxWeaveLeftElevation->setValue(0);
    ui->sbxWeaveRightElevation->setValue(0);
    m_vPattern = true;
}

void WeaveEditor::onStayTypeChanged(int)
{
    switchStayTime();
}

bool WeaveEditor::validateParam()
{
    const qint64 product = hundredths(ui->sbxWeaveLength_Frequency->value())
        * hundredths(ui->sbxWeaveAmplitude->value());
    if (isChosen(ui->cbxWeaveStandard, codes::cycle) && product > qint64(50) * 100 * 100) {
        report::error(m_owner,
                      tr("The frequency multiplied by the amplitude must be less than 50"));
        return false;
    }
    const qint64 sum = hundredths(ui->sbxWeaveLeftElevation->value())
        + hundredths(ui->sbxWeaveRightElevation->value());
    if (isChosen(ui->cbxWeaveElevationType, codes::triangular)
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
    if (!report::requireConnection())
        return;
    if (!validateParam())
        return;
    if (!m_file->maySave())
        return;
    if (m_file->save() != 0) {
        report::error(m_owner, tr("save parameter error"));
        return;
    }
    report::info(m_owner, tr("save parameter succeed"));
    emit saved();
}

} // namespace welmo
