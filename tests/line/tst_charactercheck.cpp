#include <QRegularExpression>
#include <QtTest>

#include "instructions/line/charactercheck.h"
#include "randomtext.h"
#include "support/rows.h"

using testsupport::Rows;

namespace {

const QRegularExpression grammar(R"re((\w+\([^)]+\)|\"[^\"]*\"|\w+))re");

} // namespace

/// How a line falls into tokens.
class tst_CharacterCheck : public QObject
{
    Q_OBJECT
private slots:
    void firstQuotedText()
    {
        const Rows<QString, QString> rows{
            {"the first of two", R"(ArcOn "a1", "w2")", "a1"},
            {"empty", "\"\"", ""},
            {"no partner", "a \"b", QString()},
            {"none", "abc", QString()},
            {"no escapes", "\"a\\\"b\"", "a\\"},
            {"commas, blanks, line ends", "x\"a, b\nc\"y", "a, b\nc"},
        };
        for (const auto &[name, text, expected] : rows) {
            const QString found = CharacterCheck::checkQuotationMarks(text);
            QCOMPARE(found, expected);
            QCOMPARE(found.isNull(), expected.isNull()); // "" and no quotes at all are two things
        }
    }
    void split()
    {
        const Rows<QString> rows{
            {"FeedOnWire 2", "FeedOnWire|2"},
            {R"(ArcOn "a1", "w2")", R"(ArcOn|"a1"|"w2")"},
            {"  ,, ", ""},
            {"a\tb", "a\tb"},
            {R"(ArcOn "my data")", R"(ArcOn|"my|data")"},
            {", DetectGas ,1.5;, ", "DetectGas|1.5;"},
            {"f(a,b)", "f(a|b)"},
            {"é 点,ü", "é|点|ü"},
        };
        for (const auto &[line, tokens] : rows)
            QCOMPARE(CharacterCheck::splitTlCommand(line).join('|'), tokens);
    }
    // The splitter takes a short cut after the last parenthesis, which must not show.
    void moveTokensAreThoseOfTheGrammar()
    {
        QRandomGenerator random(4201);
        for (int i = 0; i < 30000; ++i) {
            const QString line = randomLine(random, random.bounded(12));
            QStringList expected;
            for (auto found = grammar.globalMatch(line); found.hasNext();)
                expected.append(found.next().captured());
            QCOMPARE(CharacterCheck::splitMoveTlCommand(line), expected);
        }
    }
};

QTEST_GUILESS_MAIN(tst_CharacterCheck)
#include "tst_charactercheck.moc"
