#pragma once

#include "controller/cell.h"
#include "controller/registry.h"
#include "controller/unit.h"

namespace controller {

/// The welding machine: which one it is, whether it is enabled, what it does at the moment, and the
/// weld data that it works with.
class Welder : public Unit
{
public:
    Welder(Cell &cell, Registry &registry);

    void tick() override;
    bool isInError() const { return m_cell.suffers(Faults::Fault::WelderError); }
    bool isWelding() const { return false; }

private:
    Reply setting() const;
    Reply deviceParam() const;
    Reply state() const;
    QString stateWord(const QVariant &setting) const;
    Reply setWelder(const QVariant &payload);
    Reply enableWeldData(const QVariant &payload);

    Cell &m_cell;
    QVariantMap m_weldData; // what was enabled last; empty until then
    bool m_toldError = false;
};

} // namespace controller
