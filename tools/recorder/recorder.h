#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>

#include "book/plant/plantbook.h"
#include "link/mqtt/plantreader.h"

namespace recorder {

/// Takes what cells hand over into a plant's book, and tells each cell how far it is stored.
class Recorder : public QObject
{
    Q_OBJECT
public:
    /// Courses of seams older than @p keepDays are thinned, a few at a time.
    Recorder(const welmo::links::BrokerAddress &address,
             std::unique_ptr<welmo::book::PlantBook> book, int keepDays);

    void start() { m_reader.start(); }

signals:
    /// One line about what was taken or lost.
    void said(const QString &line);

private:
    void ask(const QString &cell);
    void askAll();
    void store();
    void thin();
    void tell(const welmo::book::PlantBook::Taken &taken);

    std::unique_ptr<welmo::book::PlantBook> m_book;
    QVector<welmo::book::PlantBook::Entry> m_waiting;
    QHash<QString, qint64> m_asked; // after which sequence that cell was asked again
    bool m_isFailing = false; // to store; said once
    int m_added = 0; // since that was last said
    int m_malformed = 0;
    QTimer m_storing;
    QTimer m_asking;
    QTimer m_thinning;
    const int m_keepDays;
    welmo::links::PlantReader m_reader; // last: it ends first
};

} // namespace recorder
