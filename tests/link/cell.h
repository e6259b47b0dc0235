#pragma once

#include <QThread>
#include <memory>

#include "link/cellservice.h"

/// A cell behind a broker, at work on a thread of its own.
class Cell
{
public:
    explicit Cell(const links::CellService::Options &options)
    {
        m_service = new links::CellService(options);
        m_service->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::started, m_service, &links::CellService::start);
        QObject::connect(&m_thread, &QThread::finished, m_service, &QObject::deleteLater);
        m_thread.start();
    }
    ~Cell()
    {
        m_thread.quit();
        m_thread.wait();
    }

    links::CellService *service() const { return m_service; }
    links::CellService::Refused refused() const
    {
        links::CellService::Refused now;
        QMetaObject::invokeMethod(
            m_service, [&] { now = m_service->refused(); }, Qt::BlockingQueuedConnection);
        return now;
    }

    static links::CellService::Options options(const links::BrokerAddress &address)
    {
        links::CellService::Options options;
        options.cell = QStringLiteral("cell");
        options.address = address;
        options.roles = links::Roles({{"anna", links::Role::Administrator},
                                      {"bert", links::Role::Operator},
                                      {"vera", links::Role::Viewer}});
        return options;
    }

private:
    QThread m_thread;
    links::CellService *m_service;
};
