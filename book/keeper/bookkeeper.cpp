#include "book/keeper/bookkeeper.h"

#include <QDateTime>
#include <QDir>

#include <kelp/moduleobject.h>
#include <tessa/managerhelper.h>
#include <tessa/xservice.h>

#include "schema/names.h"

namespace welmo::book {

namespace {

const QString entriesKey = QStringLiteral("entries");

const QString efficiencyName = QStringLiteral("efficiency");

constexpr int tickMs = 50; // twice the pace of the samples, so that none is late by one
constexpr int tidyMs = 60 * 1000;
constexpr qint64 courseAgeMs = 90LL * 24 * 3600 * 1000;
constexpr qint64 bookBytes = 900LL * 1024 * 1024;

// A list in a node that was read is kept as children.
QVariantList itemsOf(const QVariant &list)
{
    return list.userType() == QMetaType::QVariantMap ? list.toMap().values() : list.toList();
}

} // namespace

QString bandTitle(const QString &band)
{
    static const QHash<QString, const char *> titles{
        {QStringLiteral("current"), QT_TRANSLATE_NOOP("welmo::book::Bookkeeper", "current")},
        {QStringLiteral("voltage"), QT_TRANSLATE_NOOP("welmo::book::Bookkeeper", "voltage")},
        {QStringLiteral("speed"), QT_TRANSLATE_NOOP("welmo::book::Bookkeeper", "speed")},
        {QStringLiteral("length"), QT_TRANSLATE_NOOP("welmo::book::Bookkeeper", "length")},
        {QStringLiteral("heat_input"), QT_TRANSLATE_NOOP("welmo::book::Bookkeeper", "heat input")},
    };
    const char *title = titles.value(band);
    return title ? Bookkeeper::tr(title) : band;
}

Bookkeeper::Bookkeeper(const QString &folder, const QString &programsFolder, QObject *parent)
    : QObject(parent)
    , m_file(QDir(folder).filePath(QStringLiteral("weldbook.db")))
    , m_programsFolder(programsFolder)
    , m_keeping(std::make_unique<BookThread>(m_file, Database::ReadWrite))
    , m_recorder(nullptr)
{
    setObjectName(QStringLiteral("weldbook")); // who speaks in the message log
    m_writer = std::make_unique<SeamWriter>(m_keeping.get());
    m_files = std::make_unique<FileWatch>(m_keeping.get());
    connect(m_files.get(), &FileWatch::noted, this,
            [this](const QString &file) { m_recorder.tellFile(file); });
    connect(m_files.get(), &FileWatch::failed, this, &Bookkeeper::warn);
    m_releases = std::make_unique<Releases>(m_keeping.get(), &m_cell, m_files.get());
    connect(m_releases.get(), &Releases::failed, this, &Bookkeeper::warn);
    connect(m_releases.get(), &Releases::breached, this, [this](const QString &line) {
        warn(tr("%1; this controller lets it pass").arg(line));
    });
    m_restorer = std::make_unique<Restorer>(m_keeping.get(), &m_cell);
    connect(m_restorer.get(), &Restorer::recovered, this, &Bookkeeper::warn);
    m_recorder = SeamRecorder(m_writer.get());
    m_recorder.limitsOf = [this](const QString &file) { return limits(file); };
    m_recorder.fileInUse = [this](const QString &file) { return fileInUse(file); };
    connect(m_keeping.get(), &BookThread::problem, this, &Bookkeeper::warn);
    connect(m_writer.get(), &SeamWriter::failed, this, &Bookkeeper::warn);
    connect(m_writer.get(), &SeamWriter::seamWritten, this, [this] { emit recordsChanged(); });
    connect(m_writer.get(), &SeamWriter::limitLeft, this, &Bookkeeper::tellLimitLeft);
    connect(m_writer.get(), &SeamWriter::samplesDropped, this, [this](int count) {
        warn(tr("%1 samples of the last seam were dropped, the disk is too slow").arg(count));
    });
    // A book that does not exist yet cannot be opened for reading, so the reader waits.
    connect(m_keeping.get(), &BookThread::opened, this, [this](int interrupted) {
        m_reader = std::make_unique<BookThread>(m_file, Database::ReadOnly);
        if (interrupted > 0)
            warn(tr("%1 records were closed as interrupted: the recorder had ended")
                     .arg(interrupted));
    });
    load();
    m_ticks.setTimerType(Qt::PreciseTimer);
    m_ticks.setInterval(tickMs);
    connect(&m_ticks, &QTimer::timeout, this, &Bookkeeper::tick);
    connect(&m_tidying, &QTimer::timeout, this, &Bookkeeper::tidyUp);
    m_tidying.start(tidyMs);
}

// Closes an open seam's record as interrupted, and waits until it is written.
Bookkeeper::~Bookkeeper()
{
    m_recorder.end(Moment::now());
    m_reader.reset();
    m_keeping.reset();
}

// Loaded at once, so that later questions find everything in place.
void Bookkeeper::load()
{
    m_keeping->ask(
        this, [](SeamBook &book) { return FileHistory(book.database()).newest(); },
        [this](const QVector<FileVersion> &newest) { m_files->load(newest); });
    m_keeping->ask(
        this, [](SeamBook &book) { return book.setting(efficiencyName).toDouble(); },
        [this](double kept) {
            if (kept > 0)
                m_recorder.setEfficiency(m_efficiency = kept);
        });
    m_keeping->ask(
        this, [](SeamBook &book) { return book.allLimits(); },
        [this](const QVector<Limits> &all) {
            for (const Limits &one : all)
                m_limits.insert(one.file, one);
            emit limitsChanged();
            emit recordsChanged(); // now records can be shown with their limits
        });
}

void Bookkeeper::start()
{
    follow(names::welderState, [this](const QVariantMap &news) {
        m_recorder.tellWelder(news, Moment::now());
        tick();
    });
    follow(names::weldMode, [this](const QVariantMap &news) {
        m_recorder.setMode(news.value(QStringLiteral("mode")).toString());
    });
    follow(names::programState, [this](const QVariantMap &news) { m_recorder.tellProgram(news); });
    follow(names::alarms, [this](const QVariantMap &news) {
        if (news.contains(entriesKey))
            m_recorder.tellAlarms(news.value(entriesKey).toList());
    });

    kelp::ModuleObject *connected = xservice()->mobj()->c(QStringLiteral("connected"), true);
    connected->watch();
    connect(connected, &kelp::ModuleObject::changed, this,
            [this](const QVariant &up) { onLink(up.toBool()); });
    connect(tessa::ManagerHelper::instance()->controllerManager(),
            &tessa::ControllerManager::rcConnected, this, &Bookkeeper::listen);
    if (connected->getBool())
        listen();
}

template<typename Handler>
void Bookkeeper::follow(const QString &path, const Handler &handler)
{
    connect(xservice()->watchNode(path), &kelp::ModuleObject::changed, this,
            [this, handler](const QVariant &news) {
                handler(news.toMap());
                emit told();
            });
}

// The values are read as well, since not every host notifies them at the first subscription.
void Bookkeeper::listen()
{
    for (const QString &path :
         {names::welderState, names::weldMode, names::programState, names::alarms})
        xservice()->watch(this, path, true);
    const QVariantMap identity = read(names::cellIdentity);
    m_cellName = identity.value(QStringLiteral("store")).toString();
    m_releases->listen(identity.value(QStringLiteral("bound")).toBool());
    m_recorder.setCell(m_cellName);
    m_restorer->recover(m_cellName);
    m_files->listen();
    m_recorder.setMode(read(names::weldMode).value(QStringLiteral("mode")).toString());
    m_recorder.tellProgram(read(names::programState));
    m_recorder.tellAlarms(itemsOf(read(names::alarms).value(entriesKey)));
    m_recorder.tellWelder(read(names::welderState), Moment::now());
    tick();
}

QVariantMap Bookkeeper::read(const QString &path)
{
    const auto answer = xservice()->get(this, path);
    return answer && answer->getInt(0) == 0 ? answer->toVariant().toMap() : QVariantMap();
}

void Bookkeeper::onLink(bool up)
{
    m_recorder.tellLink(up, Moment::now());
    tick();
}

void Bookkeeper::tick()
{
    m_recorder.tick(Moment::now());
    if (m_recorder.isBusy() != m_ticks.isActive())
        m_recorder.isBusy() ? m_ticks.start() : m_ticks.stop();
    emit told();
}

// Runs only while no seam is welded, so that a record never waits for it.
void Bookkeeper::tidyUp()
{
    if (m_recorder.isBusy())
        return;
    const qint64 old = QDateTime::currentMSecsSinceEpoch() - courseAgeMs;
    m_keeping->post([old](SeamBook &book) { book.thin(old, bookBytes); }, BookThread::MayBeDropped);
}

FileInUse Bookkeeper::fileInUse(const QString &file) const
{
    return {m_files->version(file), SetValues::of(m_files->files().value(file).toMap())};
}

Limits Bookkeeper::limits(const QString &file) const
{
    Limits none;
    none.file = file;
    return m_limits.value(file, none);
}

void Bookkeeper::setEfficiency(double factor)
{
    m_recorder.setEfficiency(m_efficiency = factor);
    keep([factor](SeamBook &book) {
        return book.setSetting(efficiencyName, QString::number(factor));
    });
}

void Bookkeeper::setLimits(const Limits &limits)
{
    m_limits.insert(limits.file, limits);
    keep([limits](SeamBook &book) { return book.setLimits(limits); });
    emit limitsChanged();
}

void Bookkeeper::keep(const std::function<bool(SeamBook &)> &work)
{
    m_keeping->ask(
        this, [work](SeamBook &book) { return work(book) ? QString() : book.errorText(); },
        [this](const QString &problem) {
            if (!problem.isEmpty())
                warn(problem);
        });
}

void Bookkeeper::warn(const QString &line)
{
    tessa::ManagerHelper::instance()->throwLog(this, QStringLiteral("warning"),
                                               tr("weld book: %1").arg(line));
}

void Bookkeeper::tellInfo(const QString &line)
{
    tessa::ManagerHelper::instance()->throwLog(this, QStringLiteral("info"), line);
}

void Bookkeeper::tellError(const QString &line)
{
    tessa::ManagerHelper::instance()->throwLog(this, QStringLiteral("error"), line);
}

void Bookkeeper::tellLimitLeft(const QString &band, double value, const Seam &seam)
{
    const QString place = seam.program.isEmpty()
        ? seam.weldFile
        : tr("%1 line %2, %3").arg(seam.program).arg(seam.lastLine).arg(seam.weldFile);
    for (const BandRow &row : bandRows()) {
        if (row.name == band)
            tessa::ManagerHelper::instance()->throwLog(this, QStringLiteral("error"),
                                                       tr("%1: %2 %3 %4 is outside its limits")
                                                           .arg(place, bandTitle(band))
                                                           .arg(value, 0, 'f', 1)
                                                           .arg(row.unit));
    }
}

} // namespace welmo::book
