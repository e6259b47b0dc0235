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
    QString key; ///< the entry; empty for a node that is one value
    QVariant value; ///< invalid: the numbered file is removed
};

/// Changes what the controller keeps, through the host's service as every form does, in steps that
/// are carried out as a whole or taken back, and that can be undone. GUI thread; each request waits
/// for its answer.
class CellWriter : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Carries out the step and remembers how to undo it. When a part of it is refused, what was
    /// written before is put back; false with a line.
    bool apply(const QString &title, const QVector<CellChange> &changes, QString *problem);
    /// What undo() would take back; empty when there is nothing.
    QString undoTitle() const { return m_steps.isEmpty() ? QString() : m_steps.last().title; }
    /// Takes the last step back, unless somebody else has changed a part of it since.
    bool undo(QString *problem);
    /// False when the last step was refused half-way and could not be put back either.
    bool isWhole() const { return m_isWhole; }

    /// What is stored now, a list of the project in its order: invalid for a file that is not
    /// there, nothing when it cannot be read.
    std::optional<QVariant> read(const QString &node, const QString &key);
    /// As it is stored now, for every place that @p changes name; nothing with a line.
    std::optional<QVector<CellChange>> asStored(const QVector<CellChange> &changes,
                                                QString *problem);
    /// Writes them one by one, without a way back. False at the first that is refused, with a line;
    /// @p done tells how many were written.
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
