#include "pendant/program/linecolours.h"

#include "tessa/tlmanager.h"
#include "tl/parse.h"

namespace welmo::pendant {

namespace {

bool isInstruction(const tl::ParsedLine &line)
{
    const auto *manager = tessa::TlManager::getTlManager();
    return line.instruction || manager->propertyWidgetCreators.contains(line.word.text);
}

/// Takes pieces off the line's text from left to right.
class Cutter
{
public:
    explicit Cutter(const QString &line)
        : m_line(line)
    { }

    void take(int to, const char *color)
    {
        if (to > m_from)
            parts.append({m_line.mid(m_from, to - m_from), color});
        m_from = qMax(m_from, to);
    }

    QVector<ColouredPart> parts;

private:
    const QString &m_line;
    int m_from = 0;
};

} // namespace

QVector<ColouredPart> colouredParts(const QString &text)
{
    const tl::ParsedLine line = tl::parse(text);
    Cutter cutter(text);
    cutter.take(line.codeStart, line.hasCode() ? "text" : "ok");
    cutter.take(line.word.end() - 1, isInstruction(line) ? "topic" : "text");
    for (int i = line.word.end() - 1; i < line.codeEnd; ++i) {
        const int close =
            text.at(i) == QLatin1Char('"') ? text.indexOf(QLatin1Char('"'), i + 1) : -1;
        if (close > 0 && close < line.codeEnd) {
            cutter.take(i, "text");
            cutter.take(close + 1, "warning");
            i = close;
        }
    }
    cutter.take(line.commentStart < 0 ? text.size() : line.commentStart, "text");
    cutter.take(text.size(), "ok");
    return cutter.parts;
}

} // namespace welmo::pendant
