#include "book/records/bookthread.h"

#include <QMutexLocker>

namespace welmo::book {

BookThread::BookThread(const QString &file, Database::Access access, QObject *parent)
    : QObject(parent)
    , m_file(file)
    , m_access(access)
    , m_thread(QThread::create([this] { work(); }))
{
    m_thread->start();
}

BookThread::~BookThread()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_ending = true;
    }
    m_news.wakeOne();
    m_thread->wait();
}

bool BookThread::post(const Job &job, Importance importance)
{
    const QMutexLocker lock(&m_mutex);
    if (importance == MayBeDropped) {
        if (m_droppable == capacity) {
            ++m_dropped;
            return false;
        }
        ++m_droppable;
    }
    m_jobs.emplace_back(job, importance);
    m_news.wakeOne();
    return true;
}

int BookThread::dropped() const
{
    const QMutexLocker lock(&m_mutex);
    return m_dropped;
}

// The next job; null once the thread is to end and all jobs are done.
BookThread::Job BookThread::next()
{
    const QMutexLocker lock(&m_mutex);
    while (m_jobs.empty() && !m_ending)
        m_news.wait(&m_mutex);
    if (m_jobs.empty())
        return {};
    auto [job, importance] = std::move(m_jobs.front());
    m_jobs.pop_front();
    if (importance == MayBeDropped)
        --m_droppable;
    return std::move(job);
}

std::unique_ptr<SeamBook> BookThread::openBook()
{
    QString reason;
    auto database = Database::open(m_file, m_access, &reason);
    if (!database) {
        emit problem(reason);
        return nullptr;
    }
    auto book = std::make_unique<SeamBook>(std::move(database));
    const int interrupted = m_access == Database::ReadWrite ? book->closeInterrupted() : 0;
    if (interrupted < 0)
        emit problem(book->errorText());
    emit opened(interrupted);
    return book;
}

void BookThread::work()
{
    const auto book = openBook();
    while (const Job job = next()) {
        if (book)
            job(*book);
    }
}

} // namespace welmo::book
