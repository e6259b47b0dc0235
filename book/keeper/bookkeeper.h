#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>
#include <memory>

#include "book/keeper/cellwriter.h"
#include "book/keeper/filewatch.h"
#include "book/keeper/releases.h"
#include "book/keeper/restorer.h"
#include "book/records/bookthread.h"
#include "book/records/seamrecorder.h"
#include "book/records/seamwriter.h"

namespace welmo::book {

/// Follows the controller and fills the book; the pages get what they show from here. On the GUI
/// thread, where it never waits for the disk.
class Bookkeeper : public QObject
{
    Q_OBJECT
public:
    /// The book is in @p folder, which is made if missing; programs are searched in @p
    /// programsFolder.
    Bookkeeper(const QString &folder, const QString &programsFolder, QObject *parent = nullptr);
    ~Bookkeeper() override;

    /// Starts to follow the controller, now or as soon as the link is up.
    void start();

    QString file() const { return m_file; }
    /// Asks the book as BookThread::ask() does, on a second thread, so that no question waits for a
    /// record. A question that comes before the book is open waits until it is.
    template<typename Work, typename Then>
    void ask(QObject *context, const Work &work, const Then &then)
    {
        (m_reader ? m_reader : m_keeping)->ask(context, work, then);
    }
    const FileWatch &files() const { return *m_files; }
    CellWriter &cell() { return m_cell; }
    Releases &releases() { return *m_releases; }
    Restorer &restorer() { return *m_restorer; }
    /// The name by which controllers are told apart; empty if this one has none.
    QString cellName() const { return m_cellName; }
    QString programsFolder() const { return m_programsFolder; }
    const SeamRecorder &recorder() const { return m_recorder; }

    Limits limits(const QString &file) const;
    QList<Limits> allLimits() const { return m_limits.values(); }
    /// Sets limits from the next seam on, and stores them.
    void setLimits(const Limits &limits);

    /// The thermal efficiency for the heat input of further welds; stored.
    double efficiency() const { return m_efficiency; }
    void setEfficiency(double factor);

    /// Emits one line for the message log.
    void tellInfo(const QString &line);
    void tellError(const QString &line);

signals:
    /// A record was added or changed.
    void recordsChanged();
    void limitsChanged();
    /// The recorder received a notification; emitted at most as often as the host notifies.
    void told();

private:
    void load();
    void listen();
    template<typename Handler>
    void follow(const QString &path, const Handler &handler);
    QVariantMap read(const QString &path);
    void onLink(bool up);
    void tick();
    void tidyUp();
    FileInUse fileInUse(const QString &file) const;
    void keep(const std::function<bool(SeamBook &)> &work);
    void warn(const QString &line);
    void tellLimitLeft(const QString &band, double value, const Seam &seam);

    const QString m_file;
    const QString m_programsFolder;
    // Destroyed after the threads, whose last jobs use it.
    std::unique_ptr<SeamWriter> m_writer;
    std::unique_ptr<FileWatch> m_files;
    std::unique_ptr<BookThread> m_keeping;
    std::unique_ptr<BookThread> m_reader;
    SeamRecorder m_recorder;
    CellWriter m_cell;
    std::unique_ptr<Restorer> m_restorer;
    std::unique_ptr<Releases> m_releases;
    QString m_cellName;
    double m_efficiency = SeamRecorder::usualEfficiency;
    QHash<QString, Limits> m_limits;
    QTimer m_ticks;
    QTimer m_tidying;
};

/// The name of a band for the user.
QString bandTitle(const QString &band);

} // namespace welmo::book
