#pragma once

#include <QAbstractListModel>
#include <QUndoStack>

#include "tl/programtext.h"

namespace welmo::pendant {

/// The program that is being worked on: its lines as a model, every change undoable, and its file.
/// Lines are counted from 0. What nobody touches keeps its bytes.
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
    /// The same for several, which are undone together; answers where the last of them is.
    int insertLines(int row, const QStringList &texts);
    void removeLine(int row);
    /// The line is at @p to afterwards.
    void moveLine(int from, int to);
    QUndoStack *undoStack() { return &m_undo; }

    /// Where the program is kept; empty for one that was never saved.
    QString fileName() const { return m_fileName; }
    /// The name to show, without the folder.
    QString title() const;
    bool isModified() const { return !m_undo.isClean(); }

    /// An empty program without a file.
    void clear();
    /// Shows the file instead, or, with the reason in @p problem, leaves everything as it was. A
    /// file that came with the pendant opens as a program that was never saved, under its name.
    bool open(const QString &file, QString *problem);
    /// Somebody else wrote the program's file since it was opened or saved here.
    bool isChangedElsewhere() const;
    /// Writes the file whole, or, with the reason in @p problem, leaves it as it was.
    bool save(const QString &file, QString *problem);

    /// The controller has the program as it is shown; true until the next change.
    bool isSent() const { return m_isSent; }
    void setSent() { m_isSent = true; }

signals:
    /// Any line, in whatever way.
    void contentsChanged();
    /// The title, or whether the program is modified.
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
    QByteArray m_onDisk; // what tells the file's content, as it was opened or saved
};

} // namespace welmo::pendant
