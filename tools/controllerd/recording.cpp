#include "tools/controllerd/recording.h"

#include <QDir>

namespace controllerd {

Recording::Recording(welmo::links::CellService *service, const QString &cell,
                     const QString &dataFolder, welmo::book::Outbox::Bounds bounds)
    : m_recorder(new CellRecorder(service, cell,
                                  QDir(dataFolder).filePath(QStringLiteral("outbox.db")), bounds))
{
    m_thread.setObjectName(QStringLiteral("recorder"));
    m_recorder->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::started, m_recorder, &CellRecorder::begin);
    QObject::connect(&m_thread, &QThread::finished, m_recorder, &QObject::deleteLater);
    m_thread.start();
}

Recording::~Recording()
{
    m_thread.quit();
    m_thread.wait();
}

} // namespace controllerd
