#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::tl {

/// A program as the lines of its file. A line that is not changed keeps its bytes: line ends (LF
/// and CR LF, also mixed), a missing last line end, a byte order mark, bytes that are not UTF-8.
/// Lines are counted from 0. A copy costs nothing until one of the two is changed.
class ProgramText
{
public:
    ProgramText() = default;
    /// @p bytes is UTF-8 text; an empty one has no lines.
    explicit ProgramText(const QByteArray &bytes);

    int lineCount() const { return m_lines.size(); }
    /// A line without its end. Bytes that are not UTF-8 show as replacement characters.
    QString line(int index) const;
    QStringList lines() const;
    /// True if setLine() with the text of line() would keep every byte: they are UTF-8, and there
    /// is no carriage return among them.
    bool isFaithful(int index) const;

    /// Replaces a line and keeps its end. A line end within @p text becomes a blank.
    void setLine(int index, const QString &text);
    /// Inserts a line before @p index, or at the end; its end is that of the first line. After a
    /// last line without an end, the new last line is the one without.
    void insertLine(int index, const QString &text);
    /// Removes a line; if the last one had no end, the new last one has none.
    void removeLine(int index);
    /// Moves a line so that it is at @p to afterwards.
    void moveLine(int from, int to);

    QByteArray toBytes() const;

private:
    struct Line
    {
        QByteArray text; ///< UTF-8
        QByteArray end; ///< "\n", "\r\n", or, for the last line only, nothing
    };
    void insert(int index, const QByteArray &text);

    QByteArray m_mark; ///< the byte order mark, if any
    QVector<Line> m_lines;
};

} // namespace welmo::tl
