#pragma once

#include <QObject>

#include <tessa/tlmanager.h>

#include "tl/instruction.h"

/// Makes the welding instructions known to the program editor. What it enters stays in the TL
/// manager; the object itself is only needed while it does so.
class TlArcWeldDefine : public QObject
{
    Q_OBJECT
public:
    explicit TlArcWeldDefine(QObject *parent);

    /// Enters the group; called once by the constructor, since a second time would append the names
    /// again.
    void initArcWeldGroup();

private:
    void add(const welmo::tl::Instruction &instruction);

    tessa::TlManager *m_manager;
};
