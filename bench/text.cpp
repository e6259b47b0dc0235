#define PCRE2_CODE_UNIT_WIDTH 16
#include <memory>
#include <pcre2.h>

#include "bench/bench.h"
#include "tl/charactercheck.h"

namespace bench {

namespace {

const QString line =
    QStringLiteral(R"(WMoveC Offs(p1, 10, 0, 2.5), p2, v100, fine, tool1, wobj0, "weavedata3")");
constexpr int repetitions = 100; // of one trial: one line is shorter than the clock's tick

/// The expression that finds a move's arguments, compiled once to machine code.
class JitTokenizer
{
public:
    JitTokenizer()
    {
        const QString pattern = QStringLiteral("(\\w+\\([^)]+\\)|\"[^\"]*\"|\\w+)");
        int error = 0;
        size_t place = 0;
        m_code.reset(pcre2_compile(pattern.utf16(), size_t(pattern.size()), PCRE2_UTF, &error,
                                   &place, nullptr));
        if (!m_code || pcre2_jit_compile(m_code.get(), PCRE2_JIT_COMPLETE) != 0)
            qFatal("PCRE2 has no JIT here");
        m_match.reset(pcre2_match_data_create_from_pattern(m_code.get(), nullptr));
    }

    QStringList operator()(const QString &text) const
    {
        QStringList tokens;
        const size_t *span = pcre2_get_ovector_pointer(m_match.get());
        size_t offset = 0;
        while (pcre2_jit_match(m_code.get(), text.utf16(), size_t(text.size()), offset, 0,
                               m_match.get(), nullptr)
               > 0) {
            tokens.append(text.mid(int(span[0]), int(span[1] - span[0])));
            offset = span[1];
        }
        return tokens;
    }

private:
    template<auto Free>
    struct Freed
    {
        template<typename T>
        void operator()(T *object) const
        {
            Free(object);
        }
    };
    std::unique_ptr<pcre2_code, Freed<pcre2_code_free>> m_code;
    std::unique_ptr<pcre2_match_data, Freed<pcre2_match_data_free>> m_match;
};

bool isWord(QChar c)
{
    const ushort u = c.unicode();
    return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '_';
}

// A scanner as one would write it by hand.
QStringList scan(const QString &text)
{
    QStringList tokens;
    const int size = text.size();
    for (int i = 0; i < size;) {
        const int start = i;
        if (text[i] == '"') {
            const int end = text.indexOf('"', i + 1);
            i = end < 0 ? i + 1 : end + 1;
            if (end >= 0)
                tokens.append(text.mid(start, i - start));
        } else if (isWord(text[i])) {
            while (i < size && isWord(text[i]))
                ++i;
            const int end = i < size && text[i] == '(' ? text.indexOf(')', i + 2) : -1;
            if (end >= 0)
                i = end + 1;
            tokens.append(text.mid(start, i - start));
        } else {
            ++i;
        }
    }
    return tokens;
}

template<typename Tokenize>
Trial trial(const Tokenize &tokenize)
{
    const QStringList expected = CharacterCheck::splitMoveTlCommand(line);
    if (expected.size() != 8 || tokenize(line) != expected)
        qFatal("the two sides do not do the same");
    return [&tokenize] {
        return cost([&] {
                   for (int i = 0; i < repetitions; ++i)
                       tokenize(line);
               })
            / repetitions;
    };
}

} // namespace

void text(Bench &bench)
{
    const QString what = QStringLiteral("take a program line apart");
    const JitTokenizer jit;
    const Trial ours = trial(CharacterCheck::splitMoveTlCommand);
    bench.row(what, QStringLiteral("PCRE2 with JIT"), ours, trial(jit));
    bench.row(what, QStringLiteral("a scanner written by hand"), ours, trial(scan));
}

} // namespace bench
