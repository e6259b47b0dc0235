#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::tl {

/// A program as the lines of its file. What nobody touches keeps its bytes: line ends (LF and CR
/// LF, also mixed), a missing last line end, a byte order mark, bytes that are no UTF-8. Lines are
/// counted from 0. A copy costs nothing until one of the two is changed.
class ProgramText
{
public:
    ProgramText() = default;
    /// @p bytes is UTF-8 text; an empty one has no lines.
    explicit ProgramText(const QByteArray &bytes);

    int lineCount() const { return m_lines.size(); }
    /// A line without its end. What is no UTF-8 shows as replacement characters.
    QString line(int index) const;
    QStringList lines() const;
    /// True when line() shows all of a line's bytes, so that the text may stand for them.
    bool isFaithful(int index) const;

    /// Replaces a line and keeps its end. A line end within @p text becomes a blank.
    void setLine(int index, const QString &text);
    /// Inserts a line before @p index, or at the end; its end is that of the first line. After a
    /// last line without an end, the new one is the one without.
    void insertLine(int index, const QString &text);
    /// Takes a line away; if the last one had no end, the one that is last now has none.
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

    QByteArray m_mark; ///< the byte order mark, if there is one
    QVector<Line> m_lines;
};

} // namespace welmo::tl
