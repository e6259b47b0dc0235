#include "tessa/basepage.h"

#include "tessa/controllerstatus.h"
#include "tessa/managerhelper.h"

namespace tessa {

BasePage::BasePage(const QString &name, const QString &title, QObject *owner)
    : BModule(owner)
    , m_name(name)
    , m_title(title)
{ }

QString BasePage::name() const
{
    return m_name;
}

QString BasePage::title() const
{
    return m_title;
}

void BasePage::updateAvailability() { }

bool BasePage::isAvailable() const
{
    const ControllerStatus *status = ManagerHelper::instance()->status();
    return status->state() != ControllerStatus::State::Fault
        && status->mode() == ControllerStatus::Mode::Manual
        && status->power() == ControllerStatus::Power::On
        && status->level() >= ControllerStatus::Level::Operator;
}

void BasePage::autoUpdate(bool state, bool mode, bool power, bool level)
{
    ControllerStatus *status = ManagerHelper::instance()->status();
    status->disconnect(this);
    const auto follow = [&](bool wanted, auto signal) {
        if (wanted)
            connect(status, signal, this, [this] { updateAvailability(); });
    };
    follow(state, &ControllerStatus::stateChanged);
    follow(mode, &ControllerStatus::modeChanged);
    follow(power, &ControllerStatus::powerChanged);
    follow(level, &ControllerStatus::levelChanged);
}

} // namespace tessa
