#pragma once

#include <QObject>

#include <tessa/tlmanager.h>

#include "tl/instruction.h"

/// Makes the welding instructions known to the program editor. The entries stay in the TL manager;
/// the object itself is only needed while it makes them.
class TlArcWeldDefine : public QObject
{
    Q_OBJECT
public:
    explicit TlArcWeldDefine(QObject *parent);

    /// Enters the group; called once by the constructor, since a second call would append the names
    /// again.
    void initArcWeldGroup();

private:
    void add(const welmo::tl::Instruction &instruction);

    tessa::TlManager *m_manager;
};
