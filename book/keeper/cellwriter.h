#pragma once

#include <QObject>
#include <QVariant>
#include <QVector>
#include <optional>

namespace welmo::book {

/// One value to be written to the controller.
struct CellChange
{
    QString node;
    QString key; ///< the entry; empty for a node with one value
    QVariant value; ///< invalid: removes the numbered file
};

/// Whether what is stored there is what the change writes.
bool holds(const CellChange &change, const QVariant &stored);

/// Changes what the controller keeps, through the host's service like all forms. Each step is
/// carried out completely or taken back, and can be undone. GUI thread; each request waits for its
/// answer.
class CellWriter : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Carries out the step and remembers how to undo it. If a part is refused, the earlier parts
    /// are undone; false, with a line in @p problem.
    bool apply(const QString &title, const QVector<CellChange> &changes, QString *problem);
    /// The title of the step that undo() would take back; empty if there is none.
    QString undoTitle() const { return m_steps.isEmpty() ? QString() : m_steps.last().title; }
    /// Undoes the last step, unless a part of it was changed by somebody else since.
    bool undo(QString *problem);
    /// False if the last step was refused half-way and the earlier parts could not be undone
    /// either.
    bool isWhole() const { return m_isWhole; }

    /// The present value, a list of the project in its order: invalid for a missing file, empty if
    /// it cannot be read.
    std::optional<QVariant> read(const QString &node, const QString &key);
    /// The present values of all entries in @p changes; empty, with a line in @p problem, on
    /// failure.
    std::optional<QVector<CellChange>> asStored(const QVector<CellChange> &changes,
                                                QString *problem);
    /// Writes the changes one by one, without undoing them. Stops at the first refusal with false
    /// and a line in @p problem; @p done is the number of changes written.
    bool write(const QVector<CellChange> &changes, int *done, QString *problem);

signals:
    void stepsChanged();

private:
    struct Step
    {
        QString title;
        QVector<CellChange> before;
        QVector<CellChange> after;
    };
    static constexpr int mostSteps = 50;

    bool writeOrTakeBack(const QVector<CellChange> &changes, const QVector<CellChange> &before,
                         QString *problem);

    QVector<Step> m_steps;
    bool m_isWhole = true;
};

} // namespace welmo::book
