#pragma once

#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <memory>
#include <vector>

#include "link/mqtt/cellservice.h"

namespace fleet {

/// Many cells that send a value repeatedly. Each value is a number that tells when it was sent.
class Cells
{
public:
    static constexpr int firstValue = 10; ///< the least that the node accepts
    static constexpr int values = 490; ///< the count of values, after which they repeat

    /// Each cell sends @p rate times a second, on one of @p threads threads.
    Cells(const welmo::links::BrokerAddress &broker, int count, int rate, int threads);
    ~Cells();

    static QString nameOf(int cell) { return QStringLiteral("cell%1").arg(cell); }
    static int numberOf(const QString &name) { return name.midRef(4).toInt(); }

    bool areOnline() const { return m_online >= int(m_cells.size()); }
    void setTelling(bool on) { m_telling = on; }
    qint64 sent() const { return m_sent; }
    qint64 nowUs() const { return m_clock.nsecsElapsed() / 1000; }
    /// When the cell last sent this value.
    qint64 sentAtUs(int cell, int value) const { return m_times[slot(cell, value)]; }

private:
    static size_t slot(int cell, int value)
    {
        return size_t(cell) * values + size_t(value - firstValue);
    }
    void tell(int cell);

    const int m_rate;
    QElapsedTimer m_clock;
    std::vector<std::unique_ptr<QThread>> m_threads;
    std::vector<welmo::links::CellService *> m_cells; // each is deleted on its thread
    std::vector<int> m_next;
    std::vector<std::atomic<qint64>> m_times;
    std::atomic<int> m_online{0};
    std::atomic<qint64> m_sent{0};
    std::atomic<bool> m_telling{false};
};

} // namespace fleet
