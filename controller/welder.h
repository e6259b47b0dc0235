#pragma once

#include "controller/cell.h"
#include "controller/registry.h"
#include "controller/unit.h"

namespace controller {

/// The welding machine: which one it is, whether it is enabled, and whether it reports an error.
class Welder : public Unit
{
public:
    Welder(Cell &cell, Registry &registry);

    Reply start() override;
    bool isInError() const { return m_cell.suffers(Faults::Fault::WelderError); }
    bool isEnabled() const { return m_enabled; }
    /// "ok", "disabled" or "error", the contract's words.
    QString stateWord() const;

private:
    Reply setting() const;
    Reply deviceParam() const;
    Reply setWelder(const QVariant &payload);

    Cell &m_cell;
    bool m_enabled = false;
};

} // namespace controller
