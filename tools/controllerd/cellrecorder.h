#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "book/plant/outbox.h"
#include "book/records/seamrecorder.h"
#include "link/mqtt/cellservice.h"

namespace controllerd {

/// Makes the records of a cell for its plant: seams, alarms, changes of the cell's state and of
/// what is stored. They go through the outbox, which keeps them until a recorder has them.
///
/// On a thread of its own, so that neither the controller nor its service waits for the disk. What
/// a controller's own store remembers, alarms and changes, is complete over kills of the process;
/// a seam is handed over when it is finished.
class CellRecorder : public QObject, private welmo::book::SeamSink
{
    Q_OBJECT
public:
    /// How many entries are on the way to a recorder at a time.
    static constexpr int window = 20;

    /// The service must outlive the recorder; what it notifies from now on is recorded after
    /// begin().
    CellRecorder(welmo::links::CellService *service, const QString &cell, const QString &file,
                 welmo::book::Outbox::Bounds bounds);
    /// Closes an open seam as interrupted.
    ~CellRecorder() override;

    /// Opens the outbox; on the recorder's thread.
    void begin();

signals:
    void wanted(const QString &path, const QString &key);
    /// One line: why nothing is recorded, or what was lost.
    void problem(const QString &line);

private:
    void askForAll();
    void onNews(const QString &path, const QVariant &values);
    void onTold(const QString &path, const QVariant &value);
    void take(const QString &path, const QVariantMap &values);
    void noteFiles(const QVariantMap &files);
    void noteAlarms(const QVariantList &entries);
    void noteState(const QString &state);
    void noteChanges(const QVariantMap &page);
    qint64 lastOf(const QString &note, const QVariantList &present, const QString &key);
    QString inThisStore(qint64 number) const;
    void add(const QString &kind, const QVariantMap &content,
             const welmo::book::Outbox::Note &note = {});
    void onTaken(const QString &log, qint64 sequence, bool again);
    void fill();
    void tick();

    void opened(const welmo::book::Seam &seam) override;
    void sampled(const welmo::book::Samples &more) override;
    void closed(const welmo::book::Seam &seam) override;
    void exceeded(const welmo::book::Seam &, const welmo::book::BandRow &, double) override { }

    welmo::links::CellService *const m_service; // not owned
    const QString m_file;
    const welmo::book::Outbox::Bounds m_bounds;
    std::unique_ptr<welmo::book::Outbox> m_outbox;
    welmo::book::SeamRecorder m_recorder;
    welmo::book::Samples m_samples; // of the open seam
    QVariantMap m_files; // their contents, by name
    QString m_store; // the identity of the controller's store
    QString m_state;
    QVariantList m_changes; // the newest ones, while older pages are still asked for
    qint64 m_sent = 0; // the last entry that was sent
    QTimer m_ticks;
    QTimer m_asking; // for changes, once for many
};

} // namespace controllerd
