#include <QRegularExpression>
#include <QtTest>

#include "instructions/line/charactercheck.h"
#include "randomtext.h"

/// How a line falls into tokens.
class tst_CharacterCheck : public QObject
{
    Q_OBJECT
private slots:
    void firstQuotedText_data();
    void firstQuotedText();
    void split_data();
    void split();
    void splitMove_data();
    void splitMove();
    void moveTokensAreThoseOfTheGrammar();
};

void tst_CharacterCheck::firstQuotedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the first of two") << R"(ArcOn "a1", "w2")"
                                      << "a1";
    QTest::newRow("empty") << R"("")"
                           << "";
    QTest::newRow("no partner") << R"(a "b)" << QString();
    QTest::newRow("none") << "abc" << QString();
    QTest::newRow("no escapes") << R"("a\"b")"
                                << R"(a\)";
    QTest::newRow("commas, blanks, line ends") << "x\"a, b\nc\"y"
                                               << "a, b\nc";
}

void tst_CharacterCheck::firstQuotedText()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const QString found = CharacterCheck::checkQuotationMarks(text);
    QCOMPARE(found, expected);
    QCOMPARE(found.isNull(), expected.isNull()); // "" and no quotes at all are two things
}

void tst_CharacterCheck::split_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *line, const QStringList &expected) {
        QTest::newRow(line) << QString::fromUtf8(line) << expected;
    };
    row("FeedOnWire 2", {"FeedOnWire", "2"});
    row(R"(ArcOn "a1", "w2")", {"ArcOn", "\"a1\"", "\"w2\""});
    row("  ,, ", {});
    row("", {});
    row("a\tb", {"a\tb"});
    row(R"(ArcOn "my data")", {"ArcOn", "\"my", "data\""});
    row(", DetectGas ,1.5;, ", {"DetectGas", "1.5;"});
    row("f(a,b)", {"f(a", "b)"});
    row("é 点,ü", {"é", "点", "ü"});
}

void tst_CharacterCheck::split()
{
    QFETCH(QString, line);
    QFETCH(QStringList, expected);
    QCOMPARE(CharacterCheck::splitTlCommand(line), expected);
}

void tst_CharacterCheck::splitMove_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *line, const QStringList &expected) {
        QTest::newRow(line) << QString::fromUtf8(line) << expected;
    };
    row(R"(WMoveL p10, s1, z1, tool0, wobj0, "weave1")",
        {"WMoveL", "p10", "s1", "z1", "tool0", "wobj0", "\"weave1\""});
    row("WMoveL Offs(p1, 10, -5.5, 0), s1, fine, tool1",
        {"WMoveL", "Offs(p1, 10, -5.5, 0)", "s1", "fine", "tool1"});
    row("WMoveL s12.5", {"WMoveL", "s12", "5"});
    row("Offs(RelTool(p1,0,0,1),1,2,3)", {"Offs(RelTool(p1,0,0,1)", "1", "2", "3"});
    row("f()", {"f"});
    row("f( )", {"f( )"});
    row("Offs (p1)", {"Offs", "p1"});
    row(R"(a "b)", {"a", "b"});
    row("f(a \"b)\" c", {"f(a \"b)", "c"});
    row(R"("a)b" f(c))", {"\"a)b\"", "f(c)"});
    row("f(a) g(b", {"f(a)", "g", "b"});
    row("pé1点2", {"p", "1", "2"});
    row("f(é)", {"f(é)"});
    row(")(;.-", {});
}

void tst_CharacterCheck::splitMove()
{
    QFETCH(QString, line);
    QFETCH(QStringList, expected);
    QCOMPARE(CharacterCheck::splitMoveTlCommand(line), expected);
}

// The splitter takes a short cut after the last parenthesis, which must not show.
void tst_CharacterCheck::moveTokensAreThoseOfTheGrammar()
{
    const QRegularExpression grammar(R"re((\w+\([^)]+\)|\"[^\"]*\"|\w+))re");
    QRandomGenerator random(4201);
    for (int i = 0; i < 30000; ++i) {
        const QString line = randomLine(random, random.bounded(12));
        QStringList expected;
        for (auto found = grammar.globalMatch(line); found.hasNext();)
            expected.append(found.next().captured());
        QCOMPARE(CharacterCheck::splitMoveTlCommand(line), expected);
    }
}

QTEST_GUILESS_MAIN(tst_CharacterCheck)
#include "tst_charactercheck.moc"
