#include "book/records/seamwriter.h"

namespace welmo::book {

void SeamWriter::opened(const Seam &seam)
{
    m_dropped = 0;
    m_number = QSharedPointer<qint64>::create(0);
    m_thread->post([this, seam, number = m_number](SeamBook &book) {
        Seam kept = seam;
        if (book.begin(&kept))
            *number = kept.id;
        else
            emit failed(book.errorText());
    });
    emit seamOpened(seam);
}

void SeamWriter::sampled(const Samples &more)
{
    const auto append = [this, more, number = m_number](SeamBook &book) {
        if (*number && !book.append(*number, more))
            emit failed(book.errorText());
    };
    if (!m_thread->post(append, BookThread::MayBeDropped))
        m_dropped += more.size();
}

// A record that could not be begun, as on a full disk, is tried again here.
void SeamWriter::closed(const Seam &seam)
{
    m_thread->post([this, seam, number = m_number](SeamBook &book) {
        Seam kept = seam;
        kept.id = *number;
        if (kept.id ? book.finish(kept) : book.begin(&kept))
            emit seamWritten(kept.id);
        else
            emit failed(book.errorText());
    });
    if (m_dropped > 0)
        emit samplesDropped(m_dropped);
}

void SeamWriter::exceeded(const Seam &seam, const BandRow &band, double value)
{
    emit limitLeft(band.name, value, seam);
}

} // namespace welmo::book
