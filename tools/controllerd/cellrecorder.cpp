#include "tools/controllerd/cellrecorder.h"

#include <QDateTime>
#include <algorithm>

#include "book/plant/plantbook.h"
#include "book/plant/seamcontent.h"
#include "controller/core/json.h"
#include "schema/filesets.h"
#include "schema/names.h"

using namespace welmo::book;
namespace names = welmo::names;

namespace controllerd {

namespace {

constexpr int tickMs = 50; // twice the pace of the samples
constexpr int askMs = 200;

const QString entriesKey = QStringLiteral("entries");
const QString timeKey = QStringLiteral("time");
const QString idKey = QStringLiteral("id");
const QString numberKey = QStringLiteral("number");
const QString beforeKey = QStringLiteral("before");
const QString stateKey = QStringLiteral("state");

bool isFiles(const QString &path)
{
    const auto &sets = welmo::schema::fileSets();
    return std::any_of(sets.begin(), sets.end(),
                       [&](const auto *set) { return set->node() == path; });
}

bool isKept(const QString &path)
{
    static const QStringList others{names::runningParam,       names::anticollisionParam,
                                    names::clampingTorchParam, names::welderSetting,
                                    names::released,           names::project};
    return isFiles(path) || others.contains(path);
}

qint64 msOf(const QVariant &time)
{
    const QDateTime read = QDateTime::fromString(time.toString(), Qt::ISODate);
    return read.isValid() ? read.toMSecsSinceEpoch() : 0;
}

} // namespace

CellRecorder::CellRecorder(welmo::links::CellService *service, const QString &cell,
                           const QString &file, Outbox::Bounds bounds)
    : m_service(service)
    , m_file(file)
    , m_bounds(bounds)
    , m_recorder(this)
    , m_ticks(this)
    , m_asking(this)
{
    m_recorder.setCell(cell);
    m_recorder.fileInUse = [this](const QString &name) {
        return FileInUse{0, SetValues::of(m_files.value(name).toMap())};
    };
    using Service = welmo::links::CellService;
    connect(this, &CellRecorder::wanted, service, &Service::tell);
    connect(service, &Service::started, this, &CellRecorder::askForAll);
    connect(service, &Service::notified, this, &CellRecorder::onNews);
    connect(service, &Service::told, this, &CellRecorder::onTold);
    connect(service, &Service::taken, this, &CellRecorder::onTaken);
    m_ticks.setTimerType(Qt::PreciseTimer);
    m_ticks.setInterval(tickMs);
    connect(&m_ticks, &QTimer::timeout, this, &CellRecorder::tick);
    m_asking.setSingleShot(true);
    m_asking.setInterval(askMs);
    connect(&m_asking, &QTimer::timeout, this, [this] { emit wanted(names::audit, {}); });
}

CellRecorder::~CellRecorder()
{
    m_recorder.end(Moment::now());
}

void CellRecorder::begin()
{
    QString reason;
    m_outbox = Outbox::open(m_file, &reason, m_bounds);
    if (!m_outbox)
        emit problem(reason + QStringLiteral("; nothing is recorded"));
}

// The identity comes first, since the numbers of alarms and changes belong to it.
void CellRecorder::askForAll()
{
    QStringList paths{names::cellIdentity, names::weldMode,  names::programState,
                      names::alarms,       names::cellState, names::audit};
    for (const auto *set : welmo::schema::fileSets())
        paths.append(set->node());
    paths.append(names::welderState);
    for (const QString &path : qAsConst(paths))
        emit wanted(path, {});
}

void CellRecorder::onNews(const QString &path, const QVariant &values)
{
    take(path, values.toMap());
    if (isKept(path) && !m_asking.isActive())
        m_asking.start();
}

void CellRecorder::onTold(const QString &path, const QVariant &value)
{
    if (path == names::cellIdentity)
        m_store = value.toMap().value(QStringLiteral("store")).toString();
    else if (path == names::audit)
        noteChanges(value.toMap());
    else
        take(path, value.toMap());
}

void CellRecorder::take(const QString &path, const QVariantMap &values)
{
    if (path == names::welderState)
        m_recorder.tellWelder(values, Moment::now());
    else if (path == names::weldMode)
        m_recorder.setMode(values.value(QStringLiteral("mode")).toString());
    else if (path == names::programState)
        m_recorder.tellProgram(values);
    else if (path == names::alarms && values.contains(entriesKey))
        noteAlarms(values.value(entriesKey).toList());
    else if (path == names::cellState && values.contains(stateKey))
        noteState(values.value(stateKey).toString());
    else if (isFiles(path))
        noteFiles(values);
    tick();
}

void CellRecorder::noteFiles(const QVariantMap &files)
{
    for (auto file = files.begin(); file != files.end(); ++file) {
        const bool isNew = m_files.value(file.key()) != file.value();
        m_files.insert(file.key(), file.value());
        if (isNew)
            m_recorder.tellFile(file.key());
    }
}

void CellRecorder::noteAlarms(const QVariantList &entries)
{
    m_recorder.tellAlarms(entries);
    const qint64 last = lastOf(kind::alarm, entries, idKey);
    for (const QVariant &entry : entries) {
        QVariantMap alarm = entry.toMap();
        const qint64 id = alarm.value(idKey).toLongLong();
        if (last < 0 || id <= last)
            continue;
        alarm.insert(timeKey, msOf(alarm.value(timeKey)));
        add(kind::alarm, alarm, {kind::alarm, inThisStore(id)});
    }
}

void CellRecorder::noteState(const QString &state)
{
    if (!m_outbox || state.isEmpty() || state == m_outbox->note(kind::state))
        return;
    add(kind::state, {{timeKey, QDateTime::currentMSecsSinceEpoch()}, {stateKey, state}},
        {kind::state, state});
}

// Pages come newest first; older ones are asked for until one reaches what is recorded.
void CellRecorder::noteChanges(const QVariantMap &page)
{
    m_changes = page.value(entriesKey).toList() + m_changes;
    const qint64 last = lastOf(kind::change, m_changes, numberKey);
    const qint64 first = m_changes.value(0).toMap().value(numberKey).toLongLong();
    if (last >= 0 && first > last + 1 && page.contains(beforeKey)) {
        emit wanted(names::audit, page.value(beforeKey).toString());
        return;
    }
    for (const QVariant &entry : std::exchange(m_changes, {})) {
        QVariantMap change = entry.toMap();
        const qint64 number = change.value(numberKey).toLongLong();
        if (last < 0 || number <= last)
            continue;
        change.insert(timeKey, msOf(change.value(timeKey)));
        add(kind::change, change, {kind::change, inThisStore(number)});
    }
}

/// The number up to which the store's alarms or changes are recorded. Those that another store
/// brings along are not; -1 as long as it is not known which store it is.
qint64 CellRecorder::lastOf(const QString &note, const QVariantList &present, const QString &key)
{
    if (!m_outbox || m_store.isEmpty())
        return -1;
    const QString known = m_outbox->note(note);
    const QString prefix = m_store + QLatin1Char(' ');
    if (known.startsWith(prefix))
        return known.mid(prefix.size()).toLongLong();
    qint64 last = 0;
    for (const QVariant &entry : present)
        last = qMax(last, known.isEmpty() ? 0 : entry.toMap().value(key).toLongLong());
    m_outbox->setNote({note, inThisStore(last)});
    return last;
}

QString CellRecorder::inThisStore(qint64 number) const
{
    return QStringLiteral("%1 %2").arg(m_store).arg(number);
}

void CellRecorder::add(const QString &kind, const QVariantMap &content, const Outbox::Note &note)
{
    if (!m_outbox)
        return;
    const qint64 dropped = m_outbox->dropped();
    if (!m_outbox->add(kind, welmo::controller::toJson(content), note))
        emit problem(
            QStringLiteral("%1: a record is lost (%2)").arg(m_file, m_outbox->errorText()));
    else if (dropped == 0 && m_outbox->dropped() > 0)
        emit problem(QStringLiteral("%1: is full, the oldest records are lost").arg(m_file));
    fill();
}

void CellRecorder::onTaken(const QString &log, qint64 sequence, bool again)
{
    if (!m_outbox)
        return;
    const bool isOurs = log == m_outbox->log();
    // More than there ever was: the file was put back from a copy, and numbers are used again.
    if (isOurs && sequence > m_outbox->newest()) {
        m_outbox->renewLog();
        m_sent = 0;
    } else {
        const qint64 last = isOurs ? sequence : 0;
        if (last > 0)
            m_outbox->forgetUpTo(last);
        m_sent = again ? last : qMax(m_sent, last);
    }
    fill();
}

void CellRecorder::fill()
{
    const int room = window - m_outbox->countUpTo(m_sent);
    const auto due = room > 0 ? m_outbox->after(m_sent, room) : QVector<Outbox::Entry>();
    for (const Outbox::Entry &entry : due) {
        m_service->hand({m_outbox->log(), entry.sequence, entry.after, m_outbox->dropped(),
                         entry.kind,
                         welmo::controller::fromJson(entry.content).value_or(QVariant()).toMap()});
        m_sent = entry.sequence;
    }
}

void CellRecorder::tick()
{
    m_recorder.tick(Moment::now());
    if (m_recorder.isBusy() != m_ticks.isActive())
        m_recorder.isBusy() ? m_ticks.start() : m_ticks.stop();
}

void CellRecorder::opened(const Seam &)
{
    m_samples.clear();
}

void CellRecorder::sampled(const Samples &more)
{
    m_samples += more;
}

void CellRecorder::closed(const Seam &seam)
{
    add(kind::seam, toContent(seam, std::exchange(m_samples, {})));
}

} // namespace controllerd
