#pragma once

#include <QObject>
#include <QSharedPointer>

#include "book/records/bookthread.h"
#include "book/records/seamrecorder.h"

namespace welmo::book {

/// Carries what a recorder finds out into the book, without ever waiting for it. A record is always
/// written; of a course what does not fit the queue is left out, counted and told once a seam.
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
    /// The record is in the book, on the disk.
    void seamWritten(qint64 number);
    void limitLeft(const QString &band, double value, const welmo::book::Seam &seam);
    /// A line: what could not be written, and why.
    void failed(const QString &line);
    /// So many samples of the last seam found no place in the queue.
    void samplesDropped(int count);

private:
    BookThread *m_thread;
    /// The number in the book of the seam that is being written; on the book's thread only.
    QSharedPointer<qint64> m_number;
    int m_dropped = 0;
};

} // namespace welmo::book
