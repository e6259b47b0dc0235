#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "kelp/workspace.h"
#include "pando/bmodule.h"
#include "tessa/thememanager.h"
#include "vu/paths.h"
#include "vu/stylesheet.h"
#include "vu/switchbutton.h"
#include "vu/xnav.h"
#include "vu/xtheme.h"

using tessa::ThemeManager;
using vu::xtheme::Theme;

namespace {

const char *const themeText = R"({
    "name": "sample",
    "font": {"default": "16px sans"},
    "color": {"btn_bkg": "#112233", "black": "#445566"},
    "border": {"btn": "1px solid red"},
    "image": {"widget/own": "own.png", "widget/home": "widget/home.png"}
})";

const char *const rulesText = R"([
    {"name": "QLabel#b, QWidget[func=touch]", "min-height": "30px", "color": "$color$black"},
    {"name": "QLabel", "color": "$color$nobody", "font": "$font$nobody"},
    {"color": "red"},
    {"name": "A", "z": 5}
])";

class Module : public pando::BModule
{
public:
    QString name() const override { return QStringLiteral("sample"); }
};

/// Counts how often a widget is polished anew.
class Polishing : public QObject
{
public:
    explicit Polishing(QWidget *widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::StyleChange;
        return false;
    }
};

} // namespace

/// kelpvu and the theme manager: tokens, rules, icons, style sheets, switches, menu entries.
class tst_Look : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QDir(m_folder.path()).mkdir("images");
        write("images/own.png", "picture");
        QString error;
        vu::xtheme::setCurrent(Theme::load(write("theme.json", themeText), &error));
        QCOMPARE(error, QString());
    }
    void cleanupTestCase() { vu::xtheme::setCurrent({}); }
    void tokensBecomeTheirText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("result");
        QTest::addColumn<QStringList>("unknown");
        const auto row = [](const char *text, const QString &result,
                            const QStringList &unknown = {}) {
            QTest::newRow(text) << QString(text) << result << unknown;
        };
        row("none", "none");
        row("$font$default", "16px sans");
        row("$border$btn", "1px solid red");
        row("a $color$btn_bkg, $color$black b", "a #112233, #445566 b");
        row("$image$widget/own", "url(" + m_folder.filePath("images/own.png") + ")");
        row("$image$widget/home", "url(:/tessa/theme/images/widget/home.png)");
        row("a $color$nobody b", "a  b", {"$color$nobody"});
        row("$size$big", "", {"$size$big"});
        row("5$ and 6$", "5$ and 6$");
    }
    void tokensBecomeTheirText()
    {
        QFETCH(QString, text);
        QStringList unknown;
        QTEST(vu::xtheme::current().resolve(text, &unknown), "result");
        QTEST(unknown, "unknown");
    }
    void rulesBecomeOneSheet()
    {
        const QString path = write("rules.json", QByteArray("\xEF\xBB\xBF") + rulesText);
        ThemeManager theme;
        QSignalSpy problems(&theme, &ThemeManager::problem);
        const QString sheet = theme.genStyleSheet(path);
        QCOMPARE(sheet.simplified(),
                 QString("QLabel#b, QWidget[func=touch] { color: #445566; min-height: 30px; } "
                         "QLabel { color: ; font: ; } A { z: 5; }"));
        QCOMPARE(problems.size(), 2);
        QVERIFY(problems.at(0).at(0).toString().startsWith(path + ": rule 3 "));
        QVERIFY(problems.at(1).at(0).toString().contains("$color$nobody, $font$nobody"));
        QCOMPARE(theme.genStyleSheet(path), sheet);
        QCOMPARE(problems.size(), 2);
    }
    void aFileThatCannotBeReadIsReportedOnce_data()
    {
        QTest::addColumn<QByteArray>("rules");
        QTest::addColumn<QByteArray>("themeText");
        QTest::newRow("broken") << QByteArray("[{\"name\" \"A\"}]") << QByteArray("{\"name\": ");
        QTest::newRow("of another kind") << QByteArray("{\"name\": \"A\"}") << QByteArray("[1]");
        QTest::newRow("empty") << QByteArray() << QByteArray("{}");
    }
    void aFileThatCannotBeReadIsReportedOnce()
    {
        QFETCH(QByteArray, rules);
        QFETCH(QByteArray, themeText);
        const QString path = write("bad.json", themeText);
        QString error;
        Theme::load(path, &error);
        QVERIFY(error.startsWith(path + ':'));
        write("bad.json", rules);
        ThemeManager theme;
        QSignalSpy problems(&theme, &ThemeManager::problem);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(theme.genStyleSheet(path), QString());
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.at(0).at(0).toString().startsWith(path + ':'));
    }
    void iconsComeFromTheThemeAndFromAliases()
    {
        ThemeManager theme;
        QVERIFY(!theme.getIcon("widget", "home").isNull());
        QVERIFY(theme.getIcon("handle", "key").isNull());
        theme.addAlias("sample");
        QVERIFY(!theme.getIcon("handle", "key").isNull());
        QVERIFY(theme.getIcon("handle", "nobody").isNull());
    }
    void aPictureIsPaintedInOneInk()
    {
        QImage image(2, 1, QImage::Format_ARGB32);
        image.setPixelColor(0, 0, Qt::green);
        image.setPixelColor(1, 0, Qt::transparent);
        const QString path = m_folder.filePath("picture.png");
        QVERIFY(image.save(path));
        const auto painted = [&](const QString &ink) {
            return vu::xtheme::pixmap(path, ink).toImage();
        };
        QCOMPARE(painted("black").pixelColor(0, 0), QColor("#445566"));
        QCOMPARE(painted("red").pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(painted("black").pixelColor(1, 0).alpha(), 0);
        QVERIFY(vu::xtheme::pixmap(m_folder.filePath("nobody.png"), "black").isNull());
    }
    void aSheetIsSetOnceOnTop_data()
    {
        QTest::addColumn<QStringList>("sheets"); // above, own, wanted, own afterwards
        QTest::addColumn<bool>("polished");
        const auto row = [](const char *name, const QStringList &sheets, bool polished) {
            QTest::newRow(name) << sheets << polished;
        };
        row("new", {"", "", "a{}", "a{}"}, true);
        row("set already", {"", "a{}", "a{}", "a{}"}, false);
        row("set above", {"a{}", "", "a{}", ""}, false);
        row("another one above", {"b{}", "", "a{}", "a{}"}, true);
        row("set above, another one here", {"a{}", "b{}", "a{}", "a{}"}, true);
        row("cleared", {"", "a{}", "", ""}, true);
    }
    void aSheetIsSetOnceOnTop()
    {
        QFETCH(QStringList, sheets);
        QWidget above;
        auto *top = new QWidget(&above);
        auto *child = new QWidget(top);
        above.setStyleSheet(sheets.at(0));
        top->setStyleSheet(sheets.at(1));
        above.ensurePolished();
        Polishing polishing(child);
        setRecursiveWidgetStyleSheet(top, sheets.at(2));
        QCOMPARE(top->styleSheet(), sheets.at(3));
        QTEST(polishing.count > 0, "polished");
        QCOMPARE(child->styleSheet(), QString());
    }
    void aSwitchTellsEveryChangeUnlessBlocked()
    {
        EnableButton button;
        QSignalSpy enabled(&button, &EnableButton::enabled);
        button.setChecked(true);
        QTest::mouseClick(&button, Qt::LeftButton);
        button.setChecked(false);
        QCOMPARE(enabled, QList<QList<QVariant>>({{true}, {false}}));
        const QSignalBlocker blocker(&button);
        button.setChecked(true);
        QCOMPARE(enabled.size(), 2);
        QVERIFY(static_cast<QWidget &>(button).minimumSizeHint().height() >= 45);
    }
    void aHeldButtonIsReleasedOnce_data()
    {
        QTest::addColumn<QString>("event");
        QTest::newRow("let go") << "release";
        QTest::newRow("disabled while held") << "disable";
        QTest::newRow("hidden while held") << "hide";
    }
    void aHeldButtonIsReleasedOnce()
    {
        QFETCH(QString, event);
        TouchButton button;
        button.show();
        QSignalSpy touched(&button, &TouchButton::touched);
        QTest::mousePress(&button, Qt::LeftButton);
        button.setEnabled(event != "disable");
        button.setVisible(event != "hide");
        if (event != "release")
            QCOMPARE(touched, QList<QList<QVariant>>({{true}, {false}}));
        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(touched, QList<QList<QVariant>>({{true}, {false}}));
        QVERIFY(!button.isDown());
    }
    void filesOfAModule()
    {
        QCOMPARE(vu::languagePath("a_cn", {}, "a"), QString(":/a/language/a_cn.qm"));
        QCOMPARE(vu::languagePath("a_cn", vu::LanguageType::Installed, "a"),
                 QCoreApplication::applicationDirPath() + "/language/a_cn.qm");
        QCOMPARE(vu::templatePath("a", "b"), QString(":/a/template/b.json"));
    }
    void aMenuEntryIsANodeThatItsOwnerFills()
    {
        QTemporaryDir folder;
        kelp::Workspace host(folder.path(), "en");
        Module owner;
        kelp::ModuleObject *first = vu::xnav::registerPage(&owner, "Title", "robot.pack", "", -1);
        kelp::ModuleObject *second = vu::xnav::registerPage(nullptr, "Other", "robot.pack", "", 0);
        first->set(&owner, "nav", "page.key", true);
        QCOMPARE(m(vu::xnav::entriesPath)->cmobjs(), QList<kelp::ModuleObject *>({first, second}));
        const QVariantMap expected{{"title", "Title"},  {"group", "robot.pack"},
                                   {"parent", ""},      {"position", -1},
                                   {"owner", "sample"}, {"nav", "page.key"}};
        QCOMPARE(first->toVariant(), QVariant(expected));
        QCOMPARE(second->r("position")->getInt(), 0);
    }

private:
    QString write(const QString &name, const QByteArray &text)
    {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(text);
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(tst_Look)
#include "tst_look.moc"
