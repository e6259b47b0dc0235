#pragma once

#include <QAbstractListModel>
#include <QUndoStack>

#include "tl/programtext.h"

namespace welmo::pendant {

/// The program that is being edited: its lines as a model, every change undoable, and its file.
/// Lines are counted from 0. A line that is not edited keeps its bytes.
class ProgramDocument : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit ProgramDocument(QObject *parent = nullptr);

    const welmo::tl::ProgramText &text() const { return m_text; }
    QString line(int row) const { return m_text.line(row); }
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    void setLine(int row, const QString &text);
    /// Inserts before @p row, or at the end.
    void insertLine(int row, const QString &text);
    /// Inserts several lines as one undo step; returns the last one's row.
    int insertLines(int row, const QStringList &texts);
    void removeLine(int row);
    /// Moves a line so that it is at @p to afterwards.
    void moveLine(int from, int to);
    QUndoStack *undoStack() { return &m_undo; }

    /// The program's file; empty if it was never saved.
    QString fileName() const { return m_fileName; }
    /// The file's name without its folder.
    QString title() const;
    bool isModified() const { return !m_undo.isClean(); }

    /// An empty program without a file.
    void clear();
    /// Opens the file; on failure nothing changes and @p problem has the reason. A file that came
    /// with the pendant opens as a program that was never saved, under its name.
    bool open(const QString &file, QString *problem);
    /// Whether the program's file was changed by another program since it was opened or saved.
    bool isChangedElsewhere() const;
    /// Writes the file as a whole; on failure the old one stays and @p problem has the reason.
    bool save(const QString &file, QString *problem);

    /// Whether the controller has the program as it is shown; false after the next change.
    bool isSent() const { return m_isSent; }
    void setSent() { m_isSent = true; }

signals:
    /// Any line has changed in any way.
    void contentsChanged();
    /// The title, or whether the program is modified, has changed.
    void titleChanged();

private:
    class Edit;
    enum class Change { Replaced, Inserted, Removed, Moved };

    void edit(Change change, int row, int to, const QString &name,
              const welmo::tl::ProgramText &after);
    void show(Change change, int row, int to, const welmo::tl::ProgramText &text);
    void start(const welmo::tl::ProgramText &text, const QString &file, const QString &name);

    welmo::tl::ProgramText m_text;
    QUndoStack m_undo;
    bool m_isSent = false;
    QString m_fileName;
    QString m_name; // of a program without a file
    QByteArray m_onDisk; // a hash of the file's content when it was opened or saved
};

} // namespace welmo::pendant
