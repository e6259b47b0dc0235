#include <QDirIterator>
#include <QTest>

#include "instructions/tlarcweld.h"
#include "support/formhost.h"
#include "tessa/basecontentwidget.h"
#include "tessa/tlmanager.h"
#include "tools/tlcheck/checker.h"

using tessa::TlManager;
using testsupport::FormHost;

/// The checker and the property forms say the same about the same lines.
class TestVerdict : public QObject
{
    Q_OBJECT
private slots:
    // What the form says; "no such point" is a warning there, and without words of its own here.
    void lines()
    {
        FormHost host;
        TlArcWeldDefine instructions(nullptr);
        const tlcheck::Checker checker(project());
        int count = 0;
        for (const QString &line : allLines()) {
            if (welmo::line::classify(line) == welmo::line::Instruction::None)
                continue;
            const QString word = welmo::line::firstWord(line).text;
            const std::unique_ptr<tessa::BaseContentWidget> form(
                TlManager::getTlManager()->propertyWidgetCreators.value(word)(host.window()));
            host.takeMessages();
            form->FillWith(line);
            QStringList said;
            for (const QString &message : host.takeMessages()) {
                if (message.startsWith("error: "))
                    said.append(message.mid(7).section(" [", 0, 0));
            }
            QStringList expected;
            for (const tlcheck::Finding &finding : checker.checkLine(line, 0)) {
                if (finding.message)
                    expected.append(finding.message);
            }
            said.sort();
            expected.sort();
            QVERIFY2(said == expected, qPrintable(line + ": " + said.join(", ")));
            ++count;
        }
        QVERIFY(count > 50);
    }

private:
    static QStringList allLines()
    {
        QStringList lines{"ArcOn  \"ARCONDATA3\" , \"arcdata40\"",
                          "ArcOn \"\",\"arcdata1\"",
                          "ArcOn arcondata1,arcdata99",
                          "ArcOn \"arcondata1,\"arcdata1\"",
                          "ArcOff \"arcoffdata1\";",
                          "WeaveOff ",
                          "WeaveOff;",
                          "WeaveOn \"NULL\"",
                          "FeedOnWire 1e3",
                          "FeedOnWire inf",
                          "FeedOnWire 0x10",
                          "FeedBackWire 0",
                          "DetectGas\t1",
                          "WMoveL p1 v10 fine torch1",
                          "WMoveL p1,v10,fine,torch1,",
                          "WMoveL Offs(p1,1,2,3),v10,fine,torch1",
                          "WMoveL Offs(),v10,fine,torch1",
                          "WMoveL RELTOOL(p1,1,2,3,4,5,6),v10,fine,torch1,wobj0",
                          "WMoveL \"p1\",v10,fine,torch1",
                          "WMoveL p1,v10,fine,torch1,wobj0,\"NULL\"",
                          "WMoveC p7,p8,\"v10\",V10,Torch1,wobj0,\"\""};
        QDirIterator programs(EXAMPLES, {"*.tl"});
        while (programs.hasNext()) {
            QFile file(programs.next());
            if (file.open(QIODevice::ReadOnly))
                lines += QString::fromUtf8(file.readAll()).split('\n');
        }
        lines.removeDuplicates();
        return lines;
    }
    static tlcheck::ProjectNames project()
    {
        const auto names = [](const char *list, const char *type = nullptr) {
            QSet<QString> set;
            for (const auto *item : m(QString("orbo.project.") + list)->cmobjs()) {
                if (!type || item->r("type")->getString() == type)
                    set.insert(item->r("name")->getString());
            }
            return set;
        };
        tlcheck::ProjectNames project;
        project.points = names("point._list");
        project.speeds = names("var.system_list", "speed") + names("var._list", "speed");
        project.zones = names("var.system_list", "zone") + names("var._list", "zone");
        project.tools = names("tool.system_list") + names("tool._list");
        project.wobjs = names("wobj.system_list") + names("wobj._list");
        return project;
    }
};

QTEST_MAIN(TestVerdict)
#include "tst_verdict.moc"
