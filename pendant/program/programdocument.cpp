#include "pendant/program/programdocument.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include "tl/programfile.h"

namespace welmo::pendant {

using welmo::tl::ProgramText;

namespace {

constexpr int undoLimit = 100; // each step of a long program holds a list of its lines

QByteArray digest(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

} // namespace

// Holds the program before and after the change, so that undoing it restores the lines' bytes.
class ProgramDocument::Edit : public QUndoCommand
{
public:
    Edit(ProgramDocument *document, Change change, int row, int to, ProgramText after)
        : m_document(document)
        , m_change(change)
        , m_row(row)
        , m_to(to)
        , m_before(document->m_text)
        , m_after(std::move(after))
    { }

    void redo() override { m_document->show(m_change, m_row, m_to, m_after); }

    void undo() override
    {
        switch (m_change) {
        case Change::Replaced:
            return m_document->show(Change::Replaced, m_row, m_to, m_before);
        case Change::Inserted:
            return m_document->show(Change::Removed, m_row, m_to, m_before);
        case Change::Removed:
            return m_document->show(Change::Inserted, m_row, m_to, m_before);
        case Change::Moved:
            return m_document->show(Change::Moved, m_to, m_row, m_before);
        }
    }

private:
    ProgramDocument *m_document;
    Change m_change;
    int m_row;
    int m_to;
    ProgramText m_before;
    ProgramText m_after;
};

ProgramDocument::ProgramDocument(QObject *parent)
    : QAbstractListModel(parent)
{
    m_undo.setUndoLimit(undoLimit);
    connect(&m_undo, &QUndoStack::cleanChanged, this, &ProgramDocument::titleChanged);
}

int ProgramDocument::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_text.lineCount();
}

QVariant ProgramDocument::data(const QModelIndex &index, int role) const
{
    return role == Qt::DisplayRole ? QVariant(m_text.line(index.row())) : QVariant();
}

void ProgramDocument::setLine(int row, const QString &text)
{
    ProgramText after = m_text;
    after.setLine(row, text);
    edit(Change::Replaced, row, row, tr("the change of line %1").arg(row + 1), after);
}

void ProgramDocument::insertLine(int row, const QString &text)
{
    ProgramText after = m_text;
    after.insertLine(row, text);
    edit(Change::Inserted, row, row, tr("the insertion of line %1").arg(row + 1), after);
}

int ProgramDocument::insertLines(int row, const QStringList &texts)
{
    if (texts.size() > 1)
        m_undo.beginMacro(tr("the insertion of line %1").arg(row + 1));
    for (const QString &text : texts)
        insertLine(row++, text);
    if (texts.size() > 1)
        m_undo.endMacro();
    return row - 1;
}

void ProgramDocument::removeLine(int row)
{
    ProgramText after = m_text;
    after.removeLine(row);
    edit(Change::Removed, row, row, tr("the removal of line %1").arg(row + 1), after);
}

void ProgramDocument::moveLine(int from, int to)
{
    ProgramText after = m_text;
    after.moveLine(from, to);
    edit(Change::Moved, from, to, tr("the move of line %1").arg(from + 1), after);
}

void ProgramDocument::edit(Change change, int row, int to, const QString &name,
                           const ProgramText &after)
{
    auto *command = new Edit(this, change, row, to, after);
    command->setText(name);
    m_undo.push(command);
}

void ProgramDocument::show(Change change, int row, int to, const ProgramText &text)
{
    switch (change) {
    case Change::Replaced:
        m_text = text;
        emit dataChanged(index(row), index(row));
        break;
    case Change::Inserted:
        beginInsertRows({}, row, row);
        m_text = text;
        endInsertRows();
        break;
    case Change::Removed:
        beginRemoveRows({}, row, row);
        m_text = text;
        endRemoveRows();
        break;
    case Change::Moved:
        beginMoveRows({}, row, row, {}, to > row ? to + 1 : to);
        m_text = text;
        endMoveRows();
        break;
    }
    m_isSent = false;
    emit contentsChanged();
}

QString ProgramDocument::title() const
{
    if (!m_fileName.isEmpty())
        return QFileInfo(m_fileName).fileName();
    return m_name.isEmpty() ? tr("New program") : m_name;
}

void ProgramDocument::start(const ProgramText &text, const QString &file, const QString &name)
{
    beginResetModel();
    m_text = text;
    m_fileName = file;
    m_name = name;
    m_undo.clear();
    m_isSent = false;
    endResetModel();
    emit contentsChanged();
    emit titleChanged();
}

void ProgramDocument::clear()
{
    start({}, {}, {});
}

bool ProgramDocument::open(const QString &file, QString *problem)
{
    const std::optional<QByteArray> bytes = tl::readProgram(file, problem);
    if (!bytes)
        return false;
    const bool cameWithUs = file.startsWith(QLatin1Char(':'));
    start(ProgramText(*bytes), cameWithUs ? QString() : file, QFileInfo(file).fileName());
    m_onDisk = digest(*bytes);
    return true;
}

bool ProgramDocument::isChangedElsewhere() const
{
    QString problem;
    const std::optional<QByteArray> bytes = tl::readProgram(m_fileName, &problem);
    return bytes ? digest(*bytes) != m_onDisk : QFileInfo::exists(m_fileName);
}

bool ProgramDocument::save(const QString &file, QString *problem)
{
    const QByteArray bytes = m_text.toBytes();
    if (!tl::writeProgram(file, bytes, problem))
        return false;
    m_onDisk = digest(bytes);
    m_fileName = file;
    m_undo.setClean();
    emit titleChanged();
    return true;
}

} // namespace welmo::pendant
