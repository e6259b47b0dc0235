#include "pendant/pages/jogpage.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "pendant/pages/jogpad.h"
#include "pendant/pages/pointspanel.h"
#include "pendant/state/cell.h"
#include "pendant/state/jogspeed.h"
#include "pendant/state/reasontext.h"
#include "pendant/state/robotstate.h"
#include "pendant/theme/look.h"
#include "schema/names.h"
#include "schema/reasons.h"
#include "tessa/host.h"

namespace welmo::pendant {

namespace {

const QString jointFrame = QStringLiteral("joint");
constexpr int speedStep = 5; // percent

} // namespace

JogPage::JogPage(const JogParts &parts, QWidget *parent)
    : HostPage(tr("Jog"), parent)
    , m_parts(parts)
{
    setObjectName(QStringLiteral("Jog"));
    auto *row = new QHBoxLayout;
    row->setSpacing(body()->spacing());
    row->addWidget(makeMoving(), 1);
    row->addWidget(new PointsPanel(parts.host, this), 1);
    body()->addLayout(row, 1);
    connect(m_pad, &JogPad::pressed, this, &JogPage::start);
    connect(m_pad, &JogPad::released, this, &JogPage::stop);
    connect(m_frame, qOverload<int>(&QComboBox::currentIndexChanged), this, &JogPage::refreshAxes);
    connect(parts.robot, &RobotState::changed, this, &JogPage::refresh);
    connect(parts.speed, &JogSpeed::changed, this, &JogPage::refresh);
    connect(parts.cell, &Cell::changed, this, &JogPage::refresh);
    refreshAxes();
}

QWidget *JogPage::makeMoving()
{
    auto *card = new Card(tr("Hold to move"), this);
    m_frame = new QComboBox(card);
    m_frame->setObjectName(QStringLiteral("cbxJogFrame"));
    m_frame->setView(new QListView(m_frame));
    m_frame->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_frame->setMinimumContentsLength(12); // so that the page fits beside the monitor
    m_frame->addItem(tr("Along the base's axes"), QStringLiteral("base"));
    m_frame->addItem(tr("Along the tool's axes"), QStringLiteral("tool"));
    m_frame->addItem(tr("Along the work object's axes"), QStringLiteral("wobj"));
    m_frame->addItem(tr("Each joint by itself"), jointFrame);
    card->body()->addWidget(m_frame);
    m_pad = new JogPad(m_parts.host->keys(), m_parts.holds, card);
    card->body()->addWidget(m_pad);
    card->body()->addLayout(makeSpeed(card));
    m_state = card->addText({});
    m_state->setObjectName(QStringLiteral("lblJogState"));
    card->body()->addStretch(1);
    return card;
}

QLayout *JogPage::makeSpeed(QWidget *card)
{
    auto *column = new QVBoxLayout; // below each other, to fit beside the monitor
    m_speed = new QLabel(card);
    m_speed->setObjectName(QStringLiteral("lblJogSpeed"));
    column->addWidget(m_speed);
    auto *row = new QHBoxLayout;
    column->addLayout(row);
    for (const int step : {-speedStep, speedStep}) {
        auto *button = new QPushButton(tr("%1 %").arg(step > 0 ? QStringLiteral("+%1").arg(step)
                                                               : QStringLiteral("−%1").arg(-step)),
                                       card);
        button->setObjectName(step > 0 ? QStringLiteral("btnJogFaster")
                                       : QStringLiteral("btnJogSlower"));
        connect(button, &QPushButton::clicked, this, [this, step] {
            // Below 5 % the steps are to 1 % and from there to 5 %.
            const int percent = m_parts.speed->percent();
            m_parts.speed->set(percent == 1 && step > 0 ? step : percent + step);
        });
        row->addWidget(button);
    }
    row->addStretch(1);
    return column;
}

bool JogPage::isJoint() const
{
    return m_frame->currentData() == jointFrame;
}

void JogPage::start(int axis, int direction)
{
    static const QString axes = QStringLiteral("xyzabc");
    QVariantMap wish{{QStringLiteral("direction"), direction},
                     {QStringLiteral("override"), m_parts.speed->percent() / 100.0}};
    if (isJoint()) {
        wish.insert(QStringLiteral("axis"), QStringLiteral("j%1").arg(axis + 1));
    } else {
        wish.insert(QStringLiteral("axis"), QString(axes.at(axis)));
        wish.insert(QStringLiteral("frame"), m_frame->currentData());
    }
    const auto answer = m_parts.host->service()->execCommand(this, names::startJog, wish);
    if (answer->getInt() != 0)
        m_parts.host->helper()->throwLog(
            this, QStringLiteral("error"),
            tr("The robot does not move: %1").arg(answerText(*answer)));
}

void JogPage::stop()
{
    m_parts.host->service()->execCommand(this, names::stopJog);
}

void JogPage::refreshAxes()
{
    QStringList names, units;
    for (int axis = 0; axis < JogPad::axisCount; ++axis) {
        names.append(isJoint() ? QStringLiteral("J%1").arg(axis + 1)
                               : QString(QStringLiteral("XYZABC").at(axis)));
        units.append(isJoint() || axis >= 3 ? QStringLiteral("°") : QStringLiteral("mm"));
    }
    m_pad->setAxes(names, units);
    refresh();
}

void JogPage::refresh()
{
    static const char *const paths[]{"pose.x", "pose.y", "pose.z", "pose.a", "pose.b", "pose.c"};
    const auto joints = m_parts.robot->joints();
    for (int axis = 0; axis < JogPad::axisCount; ++axis)
        m_pad->setValue(axis, isJoint() ? joints[size_t(axis)] : m_parts.robot->value(paths[axis]));
    m_speed->setText(tr("Jog speed %1 %").arg(m_parts.speed->percent()));
    const QString why = obstacle();
    m_state->setText(why.isEmpty() ? m_parts.robot->text() : why);
    setStyleWord(m_state, "finding", why.isEmpty() ? QString() : QStringLiteral("yes"));
    m_pad->setUsable(isVisible() && why.isEmpty());
}

// Why the keys move nothing; empty if they do.
QString JogPage::obstacle() const
{
    const QVariantMap &switches = m_parts.cell->switches();
    if (!m_parts.robot->isKnown())
        return tr("No connection to the controller");
    if (switches.value(QStringLiteral("automatic")).toBool())
        return schema::reasonText(QStringLiteral("automatic"), {});
    if (!switches.value(QStringLiteral("power"), true).toBool())
        return schema::reasonText(QStringLiteral("no_power"), {});
    if (switches.value(QStringLiteral("fault")).toBool())
        return schema::reasonText(QStringLiteral("cell_fault"), {});
    return m_parts.robot->word() == QLatin1String("program")
        ? schema::reasonText(QStringLiteral("program_has_robot"), {})
        : QString();
}

void JogPage::showEvent(QShowEvent *event)
{
    HostPage::showEvent(event);
    refresh();
}

void JogPage::hideEvent(QHideEvent *event)
{
    HostPage::hideEvent(event);
    m_pad->setUsable(false);
}

} // namespace welmo::pendant
