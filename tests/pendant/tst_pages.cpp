#include <QAbstractScrollArea>
#include <QComboBox>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include "pando/frame.h"
#include "support/programtouch.h"
#include "support/testpendant.h"

using testsupport::ProgramTouch;
using testsupport::Setup;
using testsupport::TestPendant;

namespace {

const QStringList instructions{"ArcOn",    "ArcOff",     "WMoveL",       "WMoveC",   "WeaveOn",
                               "WeaveOff", "FeedOnWire", "FeedBackWire", "DetectGas"};
// Texts of the weave forms that are the same in every language, and a language's own name.
const QStringList inEveryLanguage{"摆弧参数(weavedata)：", "摆弧参数(weavedata)", "中文",
                                  "English"};

QStringList textsOf(const QWidget *widget)
{
    QStringList texts;
    for (const char *name : {"text", "title", "toolTip", "placeholderText", "suffix"})
        texts.append(widget->property(name).toString());
    if (const auto *combo = qobject_cast<const QComboBox *>(widget)) {
        for (int i = 0; i < combo->count(); ++i)
            texts.append(combo->itemText(i));
    }
    if (const auto *tabs = qobject_cast<const QTabWidget *>(widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts.append(tabs->tabText(i));
    }
    return texts;
}

/// What is wrong with what is seen now.
QStringList complaints(QWidget *window, const QRegularExpression &foreign)
{
    QStringList wrong;
    if (window->width() > 1280)
        wrong.append(QString("%1 wide").arg(window->width()));
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (!widget->isVisible())
            continue;
        const auto *area = qobject_cast<QAbstractScrollArea *>(widget);
        const bool mayHide = widget->objectName() == "sideArea"; // no more than its border
        if (area && !mayHide && area->horizontalScrollBar()->maximum() > 0)
            wrong.append(QString("sideways: %1, by %2")
                             .arg(widget->objectName())
                             .arg(area->horizontalScrollBar()->maximum()));
        for (const QString &text : textsOf(widget)) {
            if (foreign.match(text).hasMatch() && !inEveryLanguage.contains(text))
                wrong.append(text);
        }
    }
    return wrong;
}

} // namespace

/// Every page and form: in one language, and no wider than the room beside the monitor.
class TestPages : public QObject
{
    Q_OBJECT
private slots:
    void wholeAndInOneLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("foreign");
        QTest::addColumn<bool>("monitor");
        const QString chinese = "[\\x{4e00}-\\x{9fff}]";
        const QString sentence = "\\b[A-Za-z][a-z]+ [a-z]{2,}\\b";
        QTest::newRow("English") << "en" << chinese << false;
        QTest::newRow("English, monitor open") << "en" << chinese << true;
        QTest::newRow("Chinese") << "zh_CN" << sentence << false;
        QTest::newRow("Chinese, monitor open") << "zh_CN" << sentence << true;
    }
    void wholeAndInOneLanguage()
    {
        QFETCH(const QString, language);
        QFETCH(const QString, foreign);
        QFETCH(const bool, monitor);
        Setup setup;
        setup.language = language;
        setup.example = setup.withBook = true;
        TestPendant pendant(setup);
        if (monitor) {
            pando::frame().rightSide->switchTo("welmo.page");
            pando::frame().rightSide->show();
            QCoreApplication::processEvents();
        }
        const QRegularExpression wrongText(foreign);
        QStringList wrong;
        const auto look = [&](const QString &place) {
            QCoreApplication::processEvents();
            for (const QString &complaint : complaints(pendant.window(), wrongText))
                wrong.append(place + ": " + complaint);
        };
        for (QToolButton *entry : pendant.find("pndNav")->findChildren<QToolButton *>()) {
            testsupport::finger::touch(entry);
            look(entry->objectName());
        }
        pendant.open("home");
        pendant.click("btnWhyNoArc");
        look("checks");
        pendant.open("arcweldpackage");
        for (QToolButton *button : pendant.find("wgtNav")->findChildren<QToolButton *>()) {
            testsupport::finger::touch(button);
            look(button->text());
        }
        ProgramTouch program(pendant);
        program.open("fillet.tl");
        pendant.click("btnProgramLook");
        look("files");
        pendant.click("btnRunCheckBack");
        for (const QString &word : instructions) {
            program.insert(word);
            look("insert " + word);
            pendant.click("btnFormAccept");
            pendant.click("btnEditLine");
            look("edit " + word);
            pendant.click("btnFormCancel");
        }
        QVERIFY2(wrong.isEmpty(), qPrintable('\n' + wrong.join('\n')));
    }
};

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
