#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>
#include <memory>

#include "book/keeper/cellwriter.h"
#include "book/keeper/filewatch.h"
#include "book/keeper/restorer.h"
#include "book/records/bookthread.h"
#include "book/records/seamrecorder.h"
#include "book/records/seamwriter.h"

namespace welmo::book {

/// Listens to the controller and fills the book; what the pages show comes from here. GUI thread;
/// it waits for the disk nowhere.
class Bookkeeper : public QObject
{
    Q_OBJECT
public:
    /// The book lies in @p folder, which is made when missing; programs are looked for in @p
    /// programsFolder.
    Bookkeeper(const QString &folder, const QString &programsFolder, QObject *parent = nullptr);
    ~Bookkeeper() override;

    /// Begins to listen, now or as soon as there is a controller.
    void start();

    QString file() const { return m_file; }
    /// Asks the book as BookThread::ask() does, on a thread of its own, so that no question waits
    /// for a record. A question that comes before the book is open waits for that.
    template<typename Work, typename Then>
    void ask(QObject *context, const Work &work, const Then &then)
    {
        (m_reader ? m_reader : m_keeping)->ask(context, work, then);
    }
    const FileWatch &files() const { return *m_files; }
    CellWriter &cell() { return m_cell; }
    Restorer &restorer() { return *m_restorer; }
    /// As the controller tells itself apart from others; empty where it does not.
    QString cellName() const { return m_cellName; }
    QString programsFolder() const { return m_programsFolder; }
    const SeamRecorder &recorder() const { return m_recorder; }

    Limits limits(const QString &file) const;
    QList<Limits> allLimits() const { return m_limits.values(); }
    /// In force from the next seam on, and kept.
    void setLimits(const Limits &limits);

    /// Of the heat input of every weld that begins from now on; kept.
    double efficiency() const { return m_efficiency; }
    void setEfficiency(double factor);

    /// A line for the message log.
    void tellInfo(const QString &line);
    void tellError(const QString &line);

signals:
    /// There is a new record, or one changed.
    void recordsChanged();
    void limitsChanged();
    /// Something was told that the recorder saw; at most as often as the host tells.
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
    // Goes after the threads, whose last jobs speak through it.
    std::unique_ptr<SeamWriter> m_writer;
    std::unique_ptr<FileWatch> m_files;
    std::unique_ptr<BookThread> m_keeping;
    std::unique_ptr<BookThread> m_reader;
    SeamRecorder m_recorder;
    CellWriter m_cell;
    std::unique_ptr<Restorer> m_restorer;
    QString m_cellName;
    double m_efficiency = SeamRecorder::usualEfficiency;
    QHash<QString, Limits> m_limits;
    QTimer m_ticks;
    QTimer m_tidying;
};

/// The word of a band for the user.
QString bandTitle(const QString &band);

} // namespace welmo::book
