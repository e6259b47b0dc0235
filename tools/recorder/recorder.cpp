#include "tools/recorder/recorder.h"

#include "link/protocol/protocol.h"

using welmo::book::PlantBook;
using welmo::book::SeamBook;
namespace protocol = welmo::links::protocol;

namespace recorder {

namespace {

constexpr int storeMs = 20; // what comes meanwhile is one transaction
constexpr int mostAtOnce = 500;
constexpr int askMs = 60 * 1000; // for what a broker lost on the way
constexpr int retryMs = 5000; // when the database failed
constexpr int thinAtOnce = 50; // courses; a plant of 1,000 cells makes 17 a second
constexpr int thinMs = 1000; // while there are more

} // namespace

Recorder::Recorder(const welmo::links::BrokerAddress &address, std::unique_ptr<PlantBook> book,
                   int keepDays)
    : m_book(std::move(book))
    , m_keepDays(keepDays)
    , m_reader({address})
{
    using Reader = welmo::links::PlantReader;
    m_storing.setSingleShot(true);
    m_storing.setInterval(storeMs);
    connect(&m_storing, &QTimer::timeout, this, &Recorder::store);
    connect(&m_asking, &QTimer::timeout, this, &Recorder::askAll);
    m_asking.start(askMs);
    connect(&m_thinning, &QTimer::timeout, this, &Recorder::thin);
    m_thinning.start(thinMs);
    connect(&m_reader, &Reader::problem, this, &Recorder::said);
    connect(&m_reader, &Reader::came, this, [this](const QString &cell) {
        emit said(cell + QStringLiteral(" is there"));
        ask(cell);
    });
    connect(&m_reader, &Reader::gone, this,
            [this](const QString &cell) { emit said(cell + QStringLiteral(" is gone")); });
    connect(&m_reader, &Reader::recorded, this,
            [this](const QString &cell, const protocol::Record &record) {
                m_waiting.append({cell, record.log, record.sequence, record.after, record.dropped,
                                  record.kind, record.content});
                if (!m_storing.isActive())
                    m_storing.start();
            });
}

// Without a log: the cell sends what it keeps, and from the answer learns how far that is stored.
void Recorder::ask(const QString &cell)
{
    m_asked.remove(cell);
    m_reader.take(cell, {{}, 0, true});
}

void Recorder::askAll()
{
    const QStringList cells = m_reader.cells();
    for (const QString &cell : cells)
        ask(cell);
    if (const int added = std::exchange(m_added, 0); added > 0)
        emit said(QStringLiteral("%1 records were taken, %2 cells are there")
                      .arg(added)
                      .arg(cells.size()));
    const int malformed = m_reader.malformed();
    if (malformed != std::exchange(m_malformed, malformed))
        emit said(QStringLiteral("%1 messages could not be read so far").arg(malformed));
}

void Recorder::store()
{
    const auto taken = m_book->take(m_waiting.mid(0, mostAtOnce));
    if (!taken) {
        if (!std::exchange(m_isFailing, true))
            emit said(QStringLiteral("nothing can be stored: ") + m_book->errorText());
        m_waiting.clear(); // the cells keep it
        QTimer::singleShot(retryMs, this, &Recorder::askAll);
        return;
    }
    if (std::exchange(m_isFailing, false))
        emit said(QStringLiteral("it can be stored again"));
    m_waiting.remove(0, qMin(mostAtOnce, m_waiting.size()));
    if (!m_waiting.isEmpty())
        m_storing.start();
    for (const PlantBook::Taken &one : *taken)
        tell(one);
}

void Recorder::thin()
{
    if (!m_waiting.isEmpty() || m_isFailing)
        return;
    const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-m_keepDays);
    const int done =
        m_book->seams().thin(oldest.toMSecsSinceEpoch(), SeamBook::anySize, thinAtOnce);
    m_thinning.setInterval(done < thinAtOnce ? askMs : thinMs);
}

void Recorder::tell(const PlantBook::Taken &taken)
{
    // Once for each gap, however many entries come behind it.
    const bool again = taken.gap && m_asked.value(taken.cell, -1) != taken.sequence;
    if (again)
        m_asked.insert(taken.cell, taken.sequence);
    m_reader.take(taken.cell, {taken.log, taken.sequence, again});
    if (taken.lost > 0)
        emit said(QStringLiteral("%1: the cell lost %2 records").arg(taken.cell).arg(taken.lost));
    if (taken.unknown > 0)
        emit said(QStringLiteral("%1: %2 records are of no known kind, or damaged")
                      .arg(taken.cell)
                      .arg(taken.unknown));
    m_added += taken.added;
}

} // namespace recorder
