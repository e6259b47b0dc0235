#include "tools/plantpage/watch.h"

#include <QDateTime>

#include "link/mqtt/plantreader.h"
#include "schema/names.h"

namespace names = welmo::names;
using welmo::links::PlantReader;

namespace plantpage {

Watch::Watch(const welmo::links::BrokerAddress &address)
    : m_address(address)
{ }

Watch::~Watch() = default;

void Watch::setWanted(bool wanted)
{
    if (wanted && !m_reader) {
        begin();
    } else if (!wanted) {
        m_reader.reset();
        const std::lock_guard lock(m_mutex);
        m_cells.clear();
        m_problem.clear();
    }
}

void Watch::begin()
{
    const QStringList nodes{names::cellState, names::alarms, names::programState, names::weldMode,
                            names::welderState};
    m_reader = std::make_unique<PlantReader>(PlantReader::Options{m_address, nodes, false});
    const auto setThere = [this](const QString &cell, bool there) {
        change(cell, [there](Cell &one) {
            one.there = there;
            one.changed = QDateTime::currentMSecsSinceEpoch();
        });
    };
    connect(m_reader.get(), &PlantReader::heard, this,
            [this](const QString &cell) { change(cell, [](Cell &) {}); });
    connect(m_reader.get(), &PlantReader::came, this,
            [setThere](const QString &cell) { setThere(cell, true); });
    connect(m_reader.get(), &PlantReader::gone, this,
            [setThere](const QString &cell) { setThere(cell, false); });
    connect(m_reader.get(), &PlantReader::valueTold, this,
            [this](const QString &cell, const QString &path, const QVariant &value) {
                change(cell, [&](Cell &one) { one.values.insert(path, value.toMap()); });
            });
    const auto setProblem = [this](const QString &line) {
        const std::lock_guard lock(m_mutex);
        m_problem = line;
    };
    connect(m_reader.get(), &PlantReader::problem, this, setProblem);
    connect(m_reader.get(), &PlantReader::reached, this, [setProblem] { setProblem({}); });
    m_reader->start();
}

void Watch::change(const QString &cell, const std::function<void(Cell &)> &work)
{
    const std::lock_guard lock(m_mutex);
    work(m_cells[cell]);
}

Watch::Cells Watch::cells() const
{
    const std::lock_guard lock(m_mutex);
    return m_cells;
}

QString Watch::problem() const
{
    const std::lock_guard lock(m_mutex);
    return m_problem;
}

} // namespace plantpage
