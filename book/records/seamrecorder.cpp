#include "book/records/seamrecorder.h"

#include <QDateTime>
#include <QJsonDocument>
#include <chrono>
#include <cmath>

namespace welmo::book {

namespace {

constexpr int msPerSample = 1000 / Course::fullRate;
constexpr double secondsPerSample = 1.0 / Course::fullRate;
constexpr int samplesToSend = Course::fullRate; // one second
constexpr qint64 mostMissed = 600;
// How long a seam may be quiet before it is over: settleMs with phases, until the program's state
// has arrived too; arcOutMs without phases, the time for striking the arc again.
constexpr qint64 settleMs = 300;
constexpr qint64 arcOutMs = 1000;
constexpr qint64 clockSlackMs = 2000;

const QString phaseKey = QStringLiteral("phase");
const QString welding = QStringLiteral("welding");
const QString ignition = QStringLiteral("ignition");
const QString crater = QStringLiteral("crater");
const QString postFlow = QStringLiteral("post_flow");
const QString idle = QStringLiteral("idle");
const QString errorState = QStringLiteral("error");
const QString paused = QStringLiteral("paused");

double growth(double before, double now)
{
    return now >= before ? now - before : now; // the counter has restarted from 0
}

void addEnergy(Seam *seam, double joule)
{
    if (seam->length <= 0 || seam->arcTime <= 0)
        return;
    seam->arcEnergy = joule / 1000 / seam->length;
    seam->heatInput = seam->efficiency * *seam->arcEnergy;
}

std::optional<double> setValue(const QVariantMap &file, const char *mode, const char *word,
                               const char *key)
{
    const bool absolute = file.value(QLatin1String(mode)) == QLatin1String(word);
    const QVariant value = file.value(QLatin1String(key));
    return absolute && value.isValid() ? std::optional<double>(value.toDouble()) : std::nullopt;
}

} // namespace

SetValues SetValues::of(const QVariantMap &file)
{
    SetValues set;
    set.current = setValue(file, "current_mode", "current", "current");
    set.voltage = setValue(file, "voltage_mode", "separate", "voltage");
    const double speed = file.value(QStringLiteral("weld_speed")).toDouble();
    if (speed > 0) // 0 means that the program gives the speed
        set.speed = speed;
    return set;
}

Moment Moment::now()
{
    const QDateTime local = QDateTime::currentDateTime();
    const auto steady = std::chrono::steady_clock::now().time_since_epoch();
    return {local.toMSecsSinceEpoch(), local.offsetFromUtc() / 60,
            std::chrono::duration_cast<std::chrono::milliseconds>(steady).count()};
}

void SeamRecorder::tellWelder(const QVariantMap &news, const Moment &now)
{
    const QString before = m_phase;
    m_actual.current = news.value(QStringLiteral("current"), m_actual.current).toDouble();
    m_actual.voltage = news.value(QStringLiteral("voltage"), m_actual.voltage).toDouble();
    m_actual.speed = news.value(QStringLiteral("welding_speed"), m_actual.speed).toDouble();
    m_state = news.value(QStringLiteral("state"), m_state).toString();
    m_tellsPhase = m_tellsPhase || news.contains(phaseKey);
    m_phase = news.value(phaseKey, m_phase).toString();
    const QString fileBefore = m_file;
    m_file = news.value(QStringLiteral("welding_name"), m_file).toString();
    m_seamProgram = news.value(QStringLiteral("program"), m_seamProgram).toString();
    m_seamLine = news.value(QStringLiteral("line"), m_seamLine).toInt();
    m_user = news.value(QStringLiteral("user"), m_user).toString();

    const bool begins = isUnderWay() && (!m_open || (m_quietSince >= 0 && !m_wasPaused));
    if (begins && (!m_open || m_tellsPhase)) {
        close(howItEnded(), now);
        open(now);
    }
    takeCounters(news);
    if (!m_open)
        return;
    if (m_phase != before || begins)
        followPhase(begins ? QString() : before);
    if (m_file != fileBefore || begins)
        followFile(m_file);
    takeSetValues(news);
    if (isUnderWay())
        m_quietSince = -1;
    else if (m_quietSince < 0)
        m_quietSince = now.steady;
    if (burns() && m_firstSample < 0)
        m_firstSample = now.steady;
}

bool SeamRecorder::isUnderWay() const
{
    return m_tellsPhase ? m_phase != idle && !m_phase.isEmpty() : burns();
}

void SeamRecorder::takeCounters(const QVariantMap &news)
{
    const auto take = [&](const QString &key, bool *told, double *last) {
        if (!news.contains(key))
            return 0.0;
        const double now = news.value(key).toDouble();
        const double more = *told ? growth(*last, now) : 0;
        *told = true;
        *last = now;
        return more;
    };
    m_seam.length += take(QStringLiteral("welding_distance"), &m_tellsDistance, &m_distance);
    const double wire = take(QStringLiteral("welding_wire_used"), &m_tellsWire, &m_wire);
    if (m_tellsWire)
        m_seam.wire = m_seam.wire.value_or(0) + wire;
}

void SeamRecorder::followPhase(const QString &before)
{
    if (m_phase == ignition && before == welding)
        ++m_seam.restrikes;
    m_sawEnd = m_sawEnd || m_phase == crater;
    if (m_phase == ignition || m_phase == welding)
        m_wasPaused = false;
}

// A file's name begins with the prefix of its set.
void SeamRecorder::followFile(const QString &file)
{
    const FileInUse use = fileInUse && !file.isEmpty() ? fileInUse(file) : FileInUse{};
    if (file.startsWith(QLatin1String("arconda"))) {
        m_seam.arconFile = file;
        m_seam.arconVersion = use.version;
    } else if (file.startsWith(QLatin1String("arcoff"))) {
        m_seam.arcoffFile = file;
        m_seam.arcoffVersion = use.version;
        m_sawEnd = true;
    } else if (file.startsWith(QLatin1String("arcdata"))) {
        if (m_seam.weldFile != file && limitsOf)
            m_judge = Judge(m_seam.isReal() ? limitsOf(file) : Limits{});
        m_seam.weldFile = file;
        m_seam.weldVersion = use.version;
        setTo(m_set == SetValues{} ? use.set : m_set);
    }
}

void SeamRecorder::setTo(const SetValues &values)
{
    m_seam.setCurrent = values.current;
    m_seam.setVoltage = values.voltage;
    m_seam.setSpeed = values.speed;
}

// A running weld follows its file; from the arc's end on nothing is welded with it any more.
void SeamRecorder::tellFile(const QString &file)
{
    if (!m_open || m_quietSince >= 0 || file != m_file)
        return;
    followFile(file);
    if (file == m_seam.weldFile && m_set == SetValues{}) // else the set values tell it
        ++m_seam.trims;
}

// Without a seam they are told as 0.
void SeamRecorder::takeSetValues(const QVariantMap &news)
{
    const auto take = [&](const char *key, std::optional<double> *value) {
        const double told = news.value(QLatin1String(key)).toDouble();
        if (news.contains(QLatin1String(key)))
            *value = told > 0 ? std::optional<double>(told) : std::nullopt;
    };
    const SetValues before = m_set;
    take("set_current", &m_set.current);
    take("set_voltage", &m_set.voltage);
    take("set_speed", &m_set.speed);
    const bool ended = m_set == SetValues{} || m_quietSince >= 0;
    if (m_set == before || ended || m_file != m_seam.weldFile)
        return;
    setTo(m_set);
    if (!(before == SetValues{}))
        ++m_seam.trims;
}

void SeamRecorder::tellProgram(const QVariantMap &news)
{
    for (auto it = news.begin(); it != news.end(); ++it)
        m_program.insert(it.key(), it.value());
    if (!m_open)
        return;
    const QString state = m_program.value(QStringLiteral("state")).toString();
    const int line = m_program.value(QStringLiteral("line")).toInt();
    if (line > 0)
        m_seam.lastLine = line;
    if (state == paused && !m_wasPaused) {
        m_wasPaused = true;
        ++m_seam.interruptions;
    }
    m_failed = m_failed || state == errorState;
    if (state == errorState && m_seam.alarmArguments.isEmpty())
        m_seam.alarm = m_program.value(QStringLiteral("message")).toString();
}

void SeamRecorder::tellAlarms(const QVariantList &entries)
{
    const qint64 known = m_lastAlarm;
    for (const QVariant &entry : entries) {
        const QVariantMap alarm = entry.toMap();
        const qint64 id = alarm.value(QStringLiteral("id")).toLongLong();
        if (id <= m_lastAlarm)
            continue;
        m_lastAlarm = id;
        if (!m_open || known < 0)
            continue;
        m_seam.alarm = alarm.value(QStringLiteral("code")).toString();
        m_seam.alarmArguments = QString::fromUtf8(
            QJsonDocument::fromVariant(alarm.value(QStringLiteral("arguments")).toList())
                .toJson(QJsonDocument::Compact));
    }
    m_lastAlarm = std::max(m_lastAlarm, qint64(0));
}

void SeamRecorder::tellLink(bool up, const Moment &now)
{
    if (up)
        return;
    close(ending::linkLost, now);
    m_phase.clear(); // the welder tells it again when the link is up again
    m_actual = {};
}

void SeamRecorder::open(const Moment &now)
{
    m_seam = {};
    m_seam.started = now.wall;
    m_seam.utcOffset = now.utcOffset;
    m_seam.cell = m_cell;
    m_seam.user = m_user;
    m_seam.mode = m_mode;
    m_seam.efficiency = m_efficiency;
    takePlace();
    m_judge = Judge();
    m_start = now;
    m_firstSample = m_quietSince = -1;
    m_sawEnd = m_wasPaused = m_gap = m_failed = false;
    m_samples = m_burning = 0;
    m_energy = m_travelled = 0;
    m_current = m_voltage = m_speed = {};
    m_unsent.clear();
    m_open = true;
    m_sink->opened(m_seam);
}

// The welder's own values come first, since the program's may arrive later than their arc.
void SeamRecorder::takePlace()
{
    const QString state = m_program.value(QStringLiteral("state")).toString();
    const bool runs = state == QLatin1String("running") || state == paused;
    if (m_seamLine > 0) {
        m_seam.program = m_seamProgram;
        m_seam.line = m_seamLine;
    } else if (runs) {
        m_seam.program = m_program.value(QStringLiteral("name")).toString();
        m_seam.line = m_program.value(QStringLiteral("line")).toInt();
    }
    m_seam.lastLine = m_seam.line;
}

void SeamRecorder::tick(const Moment &now)
{
    if (!m_open)
        return;
    noteClock(now);
    if (m_firstSample >= 0) {
        const bool counts = m_quietSince < 0 && m_phase != postFlow;
        const qint64 due = (now.steady - m_firstSample) / msPerSample - m_samples;
        for (qint64 i = counts ? qMin(due, mostMissed) : 0; i > 0; --i)
            takeSample();
        if (!counts || due > mostMissed) // missing samples must not stretch the course
            m_firstSample = now.steady - m_samples * qint64(msPerSample);
    }
    if (m_unsent.size() >= samplesToSend)
        flush();
    settle(now);
}

void SeamRecorder::takeSample()
{
    ++m_samples;
    m_unsent.append(m_actual);
    m_travelled += m_actual.speed * secondsPerSample;
    const bool within = !m_tellsPhase || m_phase == welding;
    if (within && !burns() && !m_gap)
        ++m_seam.interruptions;
    m_gap = within && !burns();
    if (!burns())
        return;
    ++m_burning;
    m_energy += m_actual.voltage * m_actual.current * secondsPerSample;
    if (within)
        judgeSample();
}

void SeamRecorder::judgeSample()
{
    m_current.add(m_actual.current);
    m_voltage.add(m_actual.voltage);
    m_speed.add(m_actual.speed);
    if (const BandRow *left = m_judge.take(m_actual))
        m_sink->exceeded(m_seam, *left, m_actual.*left->sample);
}

void SeamRecorder::noteClock(const Moment &now)
{
    const qint64 moved = (now.wall - m_start.wall) - (now.steady - m_start.steady);
    if (std::abs(moved) > clockSlackMs)
        m_seam.clockMoved = moved;
}

void SeamRecorder::settle(const Moment &now)
{
    if (m_quietSince < 0 || now.steady - m_quietSince < (m_tellsPhase ? settleMs : arcOutMs))
        return;
    if (m_program.value(QStringLiteral("state")) != paused)
        close(howItEnded(), now);
}

QString SeamRecorder::howItEnded() const
{
    if (m_failed || m_state == errorState)
        return ending::alarm;
    return m_sawEnd || !m_tellsPhase ? ending::regular : ending::stopped;
}

void SeamRecorder::close(const QString &how, const Moment &now)
{
    if (!m_open)
        return;
    m_open = false;
    noteClock(now);
    m_seam.ended = how;
    m_seam.duration = (m_quietSince >= 0 ? m_quietSince : now.steady) - m_start.steady;
    if (how == ending::alarm && m_seam.alarm.isEmpty())
        m_seam.alarm = QStringLiteral("welder state error");
    m_seam.current = m_current.spread();
    m_seam.voltage = m_voltage.spread();
    m_seam.speed = m_speed.spread();
    m_seam.arcTime = m_burning * secondsPerSample;
    if (!m_tellsDistance)
        m_seam.length = m_travelled;
    if (m_tellsPhase)
        m_seam.gasTime = m_seam.duration / 1000.0;
    addEnergy(&m_seam, m_energy);
    m_judge.conclude(&m_seam);
    flush();
    m_sink->closed(m_seam);
}

void SeamRecorder::flush()
{
    if (!m_unsent.isEmpty())
        m_sink->sampled(std::exchange(m_unsent, {}));
}

void completeFromCourse(Seam *seam, const Samples &samples)
{
    Statistics current, voltage, speed;
    double joule = 0;
    seam->length = 0;
    for (const Sample &sample : samples) {
        seam->length += sample.speed * secondsPerSample;
        if (sample.current < SeamRecorder::burningFrom)
            continue;
        current.add(sample.current);
        voltage.add(sample.voltage);
        speed.add(sample.speed);
        joule += sample.current * sample.voltage * secondsPerSample;
    }
    seam->current = current.spread();
    seam->voltage = voltage.spread();
    seam->speed = speed.spread();
    seam->arcTime = current.count() * secondsPerSample;
    seam->duration = samples.size() * qint64(msPerSample);
    addEnergy(seam, joule);
}

} // namespace welmo::book
