#pragma once

#include <QThread>
#include <memory>

#include "link/mqtt/cellservice.h"

/// A cell behind a broker, at work on a thread of its own.
class Cell
{
public:
    explicit Cell(const welmo::links::CellService::Options &options)
    {
        m_service = new welmo::links::CellService(options);
        m_service->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::started, m_service,
                         &welmo::links::CellService::start);
        QObject::connect(&m_thread, &QThread::finished, m_service, &QObject::deleteLater);
        m_thread.start();
    }
    ~Cell()
    {
        m_thread.quit();
        m_thread.wait();
    }

    welmo::links::CellService *service() const { return m_service; }
    welmo::links::CellService::Refused refused() const
    {
        welmo::links::CellService::Refused now;
        QMetaObject::invokeMethod(
            m_service, [&] { now = m_service->refused(); }, Qt::BlockingQueuedConnection);
        return now;
    }

    static welmo::links::CellService::Options options(const welmo::links::BrokerAddress &address)
    {
        welmo::links::CellService::Options options;
        options.cell = QStringLiteral("cell");
        options.address = address;
        options.roles = welmo::links::Roles({{"anna", welmo::links::Role::Administrator},
                                             {"bert", welmo::links::Role::Operator},
                                             {"vera", welmo::links::Role::Viewer}});
        return options;
    }

private:
    QThread m_thread;
    welmo::links::CellService *m_service;
};
