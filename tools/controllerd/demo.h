#pragma once

#include <QObject>
#include <QStringList>

#include "link/mqtt/cellservice.h"

namespace controllerd {

/// Lets a cell weld by itself, for trying out a plant: in automatic mode it runs its programs in
/// turn, with a pause between. In some runs something fails; the alarm stays until the next run.
class Demo : public QObject
{
    Q_OBJECT
public:
    struct Program
    {
        QString name;
        QString text;
    };

    /// Begins when the service has started.
    Demo(welmo::links::CellService *service, QVector<Program> programs);

private:
    void begin();
    void onNews(const QString &path, const QVariant &values);
    void rest();
    void run();
    void command(const QString &name, const QVariantMap &payload = {});

    welmo::links::CellService *m_service;
    const QVector<Program> m_programs;
    int m_runs = 0;
    QString m_state; // of the program
    QTimer m_next;
};

} // namespace controllerd
