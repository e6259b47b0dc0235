#pragma once

#include <QObject>
#include <QSharedPointer>

#include "book/records/bookthread.h"
#include "book/records/seamrecorder.h"

namespace welmo::book {

/// Passes a recorder's results to the book without waiting. A record is always written; samples
/// that do not fit into the queue are dropped, counted, and reported once for each seam.
class SeamWriter : public QObject, public SeamSink
{
    Q_OBJECT
public:
    SeamWriter(BookThread *thread, QObject *parent = nullptr)
        : QObject(parent)
        , m_thread(thread)
    { }

    void opened(const Seam &seam) override;
    void sampled(const Samples &more) override;
    void closed(const Seam &seam) override;
    void exceeded(const Seam &seam, const BandRow &band, double value) override;

signals:
    void seamOpened(const welmo::book::Seam &seam);
    /// The record is in the book, and on the disk.
    void seamWritten(qint64 number);
    void limitLeft(const QString &band, double value, const welmo::book::Seam &seam);
    /// One line: what could not be written, and why.
    void failed(const QString &line);
    /// Samples of the last seam did not fit into the queue.
    void samplesDropped(int count);

private:
    BookThread *m_thread;
    /// The number in the book of the open seam; used on the book's thread only.
    QSharedPointer<qint64> m_number;
    int m_dropped = 0;
};

} // namespace welmo::book
