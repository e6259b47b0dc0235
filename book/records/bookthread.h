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

/// A thread with a book of its own. Nobody waits for it: jobs queue up, and their answers come back
/// through the event loop of the thread that made it. A queue that is full drops jobs that may be
/// dropped, and counts them.
class BookThread : public QObject
{
    Q_OBJECT
public:
    using Job = std::function<void(SeamBook &book)>;
    enum Importance { MayBeDropped, MustBeDone };

    static constexpr int capacity = 1000; ///< jobs that may be dropped

    BookThread(const QString &file, Database::Access access, QObject *parent = nullptr);
    /// Does what is queued, and ends.
    ~BookThread() override;

    /// Queues a job. False when it was dropped.
    bool post(const Job &job, Importance importance = MustBeDone);

    /// Runs @p work over there and @p then here with what it answered, unless @p context is gone.
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
    /// The book is open; so many records of an earlier run were closed as interrupted.
    void opened(int interrupted);

private:
    void work();
    std::unique_ptr<SeamBook> openBook();
    Job next();

    const QString m_file;
    const Database::Access m_access;
    mutable QMutex m_mutex;
    QWaitCondition m_news;
    std::deque<Job> m_jobs;
    int m_droppable = 0;
    int m_dropped = 0;
    bool m_ending = false;
    std::unique_ptr<QThread> m_thread;
};

} // namespace welmo::book
