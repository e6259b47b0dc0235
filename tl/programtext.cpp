#include "tl/programtext.h"

#include <algorithm>

namespace welmo::tl {

namespace {

const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");

// A NUL does not end the text, as it would with fromUtf8(QByteArray).
QString decoded(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

// A line end within one line's text would make two instructions of it.
QByteArray oneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar character) {
            return character == QLatin1Char('\n') || character == QLatin1Char('\r');
        },
        QLatin1Char(' '));
    return text.toUtf8();
}

} // namespace

ProgramText::ProgramText(const QByteArray &bytes)
    : m_mark(bytes.startsWith(byteOrderMark) ? byteOrderMark : QByteArray())
{
    for (int start = m_mark.size(); start < bytes.size();) {
        const int feed = bytes.indexOf('\n', start);
        const int next = feed < 0 ? bytes.size() : feed + 1;
        const bool hasReturn = feed > start && bytes.at(feed - 1) == '\r';
        const int end = feed < 0 ? next : feed - (hasReturn ? 1 : 0);
        m_lines.push_back({bytes.mid(start, end - start), bytes.mid(end, next - end)});
        start = next;
    }
}

QString ProgramText::line(int index) const
{
    return decoded(m_lines.at(index).text);
}

QStringList ProgramText::lines() const
{
    QStringList list;
    list.reserve(lineCount());
    for (const Line &line : m_lines)
        list.append(decoded(line.text));
    return list;
}

bool ProgramText::isFaithful(int index) const
{
    return oneLine(line(index)) == m_lines.at(index).text;
}

void ProgramText::setLine(int index, const QString &text)
{
    m_lines[index].text = oneLine(text);
}

void ProgramText::insertLine(int index, const QString &text)
{
    insert(index, oneLine(text));
}

void ProgramText::insert(int index, const QByteArray &text)
{
    QByteArray end = m_lines.isEmpty() || m_lines.first().end.isEmpty() ? QByteArrayLiteral("\n")
                                                                        : m_lines.first().end;
    if (index == lineCount() && !m_lines.isEmpty() && m_lines.last().end.isEmpty())
        std::swap(end, m_lines.last().end);
    m_lines.insert(index, {text, end});
}

void ProgramText::removeLine(int index)
{
    const bool isLast = index == lineCount() - 1;
    if (isLast && index > 0 && m_lines.last().end.isEmpty())
        m_lines[index - 1].end.clear();
    m_lines.remove(index);
}

void ProgramText::moveLine(int from, int to)
{
    const QByteArray text = m_lines.at(from).text;
    removeLine(from);
    insert(to, text);
}

QByteArray ProgramText::toBytes() const
{
    QByteArray bytes = m_mark;
    for (const Line &line : m_lines)
        bytes += line.text + line.end;
    return bytes;
}

} // namespace welmo::tl
