#pragma once

#include <QThread>

#include "tools/controllerd/cellrecorder.h"

namespace controllerd {

/// A cell's recorder at work on its thread, until this is destroyed.
class Recording
{
public:
    Recording(welmo::links::CellService *service, const QString &cell, const QString &dataFolder,
              welmo::book::Outbox::Bounds bounds = {});
    ~Recording();

    const CellRecorder *recorder() const { return m_recorder; }

private:
    QThread m_thread;
    CellRecorder *m_recorder; // deleted at the thread's end
};

} // namespace controllerd
