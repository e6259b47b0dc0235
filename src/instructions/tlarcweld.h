#pragma once

#include <QObject>
#include <QStringList>

#include <tessa/tlmanager.h>

#include "tl/instruction.h"

/// Makes the welding instructions known to the program editor. What it enters stays in the TL
/// manager; the object itself is only needed while it does so.
class TlArcWeldDefine : public QObject
{
    Q_OBJECT
public:
    explicit TlArcWeldDefine(QObject *parent);

private:
    /// Enters the group; once, since a second time would append the names again.
    void initArcWeldGroup();
    template<typename InsertWidget, typename PropertyWidget>
    void add(welmo::tl::Instruction instruction, const QString &syntax);

    tessa::TlManager *m_manager;
    QStringList m_members;
};
