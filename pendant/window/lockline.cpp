#include "pendant/window/lockline.h"

#include "pendant/state/navigation.h"
#include "tessa/controllerstatus.h"

namespace welmo::pendant {

using tessa::ControllerStatus;

LockLine::LockLine(const ControllerStatus *status, QWidget *parent)
    : QLabel(parent)
    , m_status(status)
{
    setObjectName(QStringLiteral("pndLock"));
    setContentsMargins(16, 8, 16, 8);
    setWordWrap(true);
    for (const auto signal : {&ControllerStatus::stateChanged, &ControllerStatus::modeChanged,
                              &ControllerStatus::powerChanged, &ControllerStatus::levelChanged})
        connect(status, signal, this, &LockLine::refresh);
    refresh();
}

void LockLine::setPage(const QString &key)
{
    m_locksItself = key == arcWeldKey;
    refresh();
}

void LockLine::refresh()
{
    const QString text = m_locksItself ? reason() : QString();
    setText(text);
    setHidden(text.isEmpty());
}

// The conditions of tessa::BasePage::isAvailable().
QString LockLine::reason() const
{
    if (m_status->state() == ControllerStatus::State::Fault)
        return tr("The cell has a fault: values can be read, not changed");
    if (m_status->mode() == ControllerStatus::Mode::Automatic)
        return tr("Automatic mode: values can be read, not changed");
    if (m_status->power() == ControllerStatus::Power::Off)
        return tr("The power is off: values can be read, not changed");
    if (m_status->level() < ControllerStatus::Level::Operator)
        return tr("A viewer can read values, not change them");
    return {};
}

} // namespace welmo::pendant
