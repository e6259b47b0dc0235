#include "page/handlekeys.h"

#include <QMap>
#include <QtMath>

#include <kelp/moduleobject.h>
#include <pando/bmodule.h>
#include <pando/frame.h>
#include <tessa/managerhelper.h>
#include <tessa/physicalbutton.h>

#include "adapter/hostadapter.h"
#include "data/arcweldservice.h"
#include "data/report.h"
#include "schema/weldmode.h"

namespace welmo {

const QString HandleKeys::setName = QStringLiteral("welmo_monitor");

namespace {

const QString pageKey = QStringLiteral("welmo.page");
constexpr int jogIntervalMs = 250;

int jogPercent()
{
    return int(std::lround(m(QStringLiteral("orbo.handle.jog.override"))->getDouble(0.0) * 100));
}

void setJogPercent(QObject *sender, int percent)
{
    m(QStringLiteral("orbo.handle.jog"))
        ->set(sender, QStringLiteral("override"), percent / 100.0, true);
}

} // namespace

struct HandleKeys::WireMove
{
    QString payload; ///< the controller expects the misspelt "wire_feel"
    QString child;
    QString downText;
    QString upText;
};

HandleKeys::HandleKeys(QObject *page)
    : QObject(page)
    , m_page(page)
{
    connect(&m_jogUp, &QTimer::timeout, this, &HandleKeys::onJogVAddTimeOut);
    connect(&m_jogDown, &QTimer::timeout, this, &HandleKeys::onJogVMinusTimeOut);
}

void HandleKeys::registerArcButton()
{
    const WireMove feed{QStringLiteral("wire_feel"), QStringLiteral("feed"), tr("wire feeding"),
                        tr("cancel wire feeding")};
    const WireMove back{QStringLiteral("wire_feel_back"), QStringLiteral("reverse"),
                        tr("wire reverse"), tr("cancel wire reverse")};
    using Keys = QMap<int, tessa::PhysicalButton>; // by the key's number on the handle
    const auto add = [](Keys &group, int number, const QString &label, const QString &picture,
                        std::function<void(bool)> action) {
        auto *theme = host::themeManager();
        const QString folder = QStringLiteral("handle");
        group[number] = {label, theme->getIcon(folder, picture + QLatin1String("Unpressed")),
                         theme->getIcon(folder, picture + QLatin1String("Pressed")),
                         std::move(action)};
    };
    Keys first;
    add(first, 1, tr("Wire feed"), QStringLiteral("feedWire"),
        [=](bool down) { moveWire(feed, down); });
    add(first, 2, tr("Air supply"), QStringLiteral("gas"), [=](bool down) { supplyGas(down); });
    add(first, 3, tr("Jog V+"), QStringLiteral("jogV+"),
        [=](bool down) { jog(m_jogUp, &HandleKeys::onJogVAddTimeOut, down); });
    add(first, 4, tr("Mode switching"), QStringLiteral("switchMode"),
        [=](bool down) { switchMode(down); });
    Keys second;
    add(second, 5, tr("Pull back wire"), QStringLiteral("pullWire"),
        [=](bool down) { moveWire(back, down); });
    add(second, 6, tr("Monitor"), QStringLiteral("monitor"),
        [=](bool down) { toggleMonitor(down); });
    add(second, 7, tr("Jog V-"), QStringLiteral("jogV-"),
        [=](bool down) { jog(m_jogDown, &HandleKeys::onJogVMinusTimeOut, down); });
    registerPhysicalButtons(m_page, setName, first.values(), second.values(), {QString()});
}

bool HandleKeys::checkWelderState() const
{
    const bool fine = arcweld::welderState(m_page) != QLatin1String("error");
    if (!fine)
        report::error(nullptr, tr("welder state error"));
    return fine;
}

void HandleKeys::moveWire(const WireMove &move, bool down)
{
    // A release is sent even if the link looks down, since the wire must stop.
    if (down && !report::requireConnection())
        return;
    if (!checkWelderState())
        return;
    const QString action = down ? move.downText : move.upText;
    kelp::ModuleObject payload(move.payload, nullptr);
    payload.set(nullptr, move.child, down, true);
    const QString command = arcweld::node(QStringLiteral("wire_feed"));
    if (xservice()->execCommand(nullptr, command, &payload)->getInt(0) != 0)
        report::error(nullptr, tr("%1 fail").arg(action));
    else
        report::info(nullptr, tr("%1 success").arg(action));
}

void HandleKeys::supplyGas(bool down)
{
    if (!down && checkWelderState())
        xservice()->execCommand(nullptr, arcweld::node(QStringLiteral("gas_flow")), QVariant());
}

void HandleKeys::jog(QTimer &timer, void (HandleKeys::*step)(), bool down)
{
    if (!down) {
        timer.stop();
        return;
    }
    timer.start(jogIntervalMs);
    (this->*step)(); // after the start, so that a step at the limit can stop the timer
}

void HandleKeys::onJogVAddTimeOut()
{
    const int highest = m(QStringLiteral("orbo.handle.max_jog_speed"))->getInt(100);
    const int next = jogPercent() + 1;
    if (highest < next)
        m_jogUp.stop();
    else
        setJogPercent(m_page, next);
}

void HandleKeys::onJogVMinusTimeOut()
{
    constexpr int lowest = 1;
    const int next = jogPercent() - 1;
    if (next < lowest)
        m_jogDown.stop();
    else
        setJogPercent(m_page, next);
}

void HandleKeys::switchMode(bool down)
{
    if (!down || !report::requireConnection() || !checkWelderState())
        return;
    const QString current =
        m(QStringLiteral("welmo.welding_options.weld_mode"))->getString(QString());
    kelp::ModuleObject payload(QStringLiteral("target_mode"), nullptr);
    payload.set(nullptr, QStringLiteral("mode"), schema::weldmode::next(current), true);
    const QString command = arcweld::node(QStringLiteral("set_weld_mode"));
    if (xservice()->execCommand(nullptr, command, &payload)->getInt(0) != 0)
        report::error(nullptr, tr("Switching welding operation mode failed!"));
}

void HandleKeys::toggleMonitor(bool down)
{
    auto *bar = instantiatedRightExpandSideWidget(qobject_cast<pando::BModule *>(m_page));
    if (down || !bar)
        return;
    bar->switchTo(pageKey);
    // IsHidden() does not depend on whether the window itself is shown.
    bar->setVisible(bar->isHidden());
}

} // namespace welmo
