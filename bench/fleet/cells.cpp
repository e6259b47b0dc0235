#include "bench/fleet/cells.h"

#include "schema/names.h"

namespace fleet {

namespace {

const QString user = QStringLiteral("nobody"); // a broker that asks for no user

constexpr int stepMs = 5; // from one start to the next

} // namespace

Cells::Cells(const welmo::links::BrokerAddress &broker, int count, int rate, int threads)
    : m_rate(rate)
    , m_next(size_t(count), firstValue)
    , m_times(size_t(count) * values)
{
    m_clock.start();
    for (int thread = 0; thread < threads; ++thread) {
        m_threads.push_back(std::make_unique<QThread>());
        m_threads.back()->setObjectName(QStringLiteral("cell")); // its name in the system, too
    }
    for (int cell = 0; cell < count; ++cell) {
        welmo::links::CellService::Options options{nameOf(cell), broker, {}, {}};
        options.roles = welmo::links::Roles({{user, welmo::links::Role::Administrator}});
        auto *service = new welmo::links::CellService(options);
        auto *timer = new QTimer(service);
        timer->setTimerType(Qt::PreciseTimer);
        QThread *thread = m_threads[size_t(cell % threads)].get();
        QObject::connect(service, &welmo::links::CellService::online, service,
                         [this] { ++m_online; });
        QObject::connect(timer, &QTimer::timeout, service, [this, cell] { tell(cell); });
        QObject::connect(thread, &QThread::started, service, [this, service, timer, cell] {
            QTimer::singleShot(cell * stepMs, service, [this, service, timer] {
                service->start();
                timer->start(1000 / m_rate);
            });
        });
        QObject::connect(thread, &QThread::finished, service, &QObject::deleteLater);
        service->moveToThread(thread);
        m_cells.push_back(service);
    }
    for (const auto &thread : m_threads)
        thread->start();
}

Cells::~Cells()
{
    for (const auto &thread : m_threads) {
        thread->quit();
        thread->wait();
    }
}

void Cells::tell(int cell)
{
    if (!m_telling)
        return;
    int &next = m_next[size_t(cell)];
    m_times[slot(cell, next)] = nowUs();
    ++m_sent;
    m_cells[size_t(cell)]->handle({welmo::controller::Request::Kind::Set,
                                   welmo::names::welderStateRate,
                                   {},
                                   QVariantMap{{QStringLiteral("rate"), next}}});
    next = next + 1 < firstValue + values ? next + 1 : firstValue;
}

} // namespace fleet
