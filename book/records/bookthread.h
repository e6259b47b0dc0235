#pragma once

#include <QMutex>
#include <QObject>
#include <QPointer>
#include <QThread>
#include <QWaitCondition>
#include <deque>
#include <functional>
#include <memory>

#include "book/records/seambook.h"

namespace welmo::book {

/// A thread with its own connection to the book. Callers do not wait for it: jobs queue up, and
/// answers arrive through the event loop of the thread that made it. If the queue is full, jobs
/// that may be dropped are dropped and counted.
class BookThread : public QObject
{
    Q_OBJECT
public:
    using Job = std::function<void(SeamBook &book)>;
    enum Importance { MayBeDropped, MustBeDone };

    static constexpr int capacity = 1000; ///< the most waiting jobs that may be dropped

    BookThread(const QString &file, Database::Access access, QObject *parent = nullptr);
    /// Carries out all waiting jobs, then ends the thread.
    ~BookThread() override;

    /// Queues a job. False if it was dropped.
    bool post(const Job &job, Importance importance = MustBeDone);

    /// Runs @p work on the thread, then @p then here with its result, unless @p context was
    /// deleted.
    template<typename Work, typename Then>
    void ask(QObject *context, const Work &work, const Then &then)
    {
        const QPointer<QObject> wanted(context);
        post([this, work, then, wanted](SeamBook &book) {
            auto answer = work(book);
            QMetaObject::invokeMethod(
                this,
                [wanted, then, answer = std::move(answer)] {
                    if (wanted)
                        then(answer);
                },
                Qt::QueuedConnection);
        });
    }

    int dropped() const;

signals:
    /// One line: the book cannot be opened, or something could not be written.
    void problem(const QString &line);
    /// The book is open; @p interrupted records of an earlier run were closed as interrupted.
    void opened(int interrupted);

private:
    void work();
    std::unique_ptr<SeamBook> openBook();
    Job next();

    const QString m_file;
    const Database::Access m_access;
    mutable QMutex m_mutex;
    QWaitCondition m_news;
    std::deque<std::pair<Job, Importance>> m_jobs;
    int m_droppable = 0;
    int m_dropped = 0;
    bool m_ending = false;
    std::unique_ptr<QThread> m_thread;
};

} // namespace welmo::book
