#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "kelp/workspace.h"
#include "pando/bmodule.h"
#include "support/rows.h"
#include "tessa/thememanager.h"
#include "vu/paths.h"
#include "vu/stylesheet.h"
#include "vu/switchbutton.h"
#include "vu/xnav.h"
#include "vu/xtheme.h"

using tessa::ThemeManager;
using testsupport::Rows;
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
    void tokensBecomeTheirText()
    {
        const QString own = "url(" + m_folder.filePath("images/own.png") + ")";
        const Rows<QString, QString> rows{
            {"none", "none", {}},
            {"$font$default", "16px sans", {}},
            {"$border$btn", "1px solid red", {}},
            {"a $color$btn_bkg, $color$black b", "a #112233, #445566 b", {}},
            {"$image$widget/own", own, {}},
            {"$image$widget/home", "url(:/tessa/theme/images/widget/home.png)", {}},
            {"a $color$nobody b", "a  b", "$color$nobody"},
            {"$size$big", "", "$size$big"},
            {"5$ and 6$", "5$ and 6$", {}},
        };
        for (const auto &[text, expected, reported] : rows) {
            QStringList unknown;
            QCOMPARE(vu::xtheme::current().resolve(text, &unknown), expected);
            QCOMPARE(unknown.join(' '), reported);
        }
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
    void aFileThatCannotBeReadIsReportedOnce()
    {
        const Rows<QByteArray, QByteArray> rows{
            {"broken", "[{\"name\" \"A\"}]", "{\"name\": "},
            {"of another kind", "{\"name\": \"A\"}", "[1]"},
            {"empty", "", "{}"},
        };
        for (const auto &[name, rules, themeText] : rows) {
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
    void aSheetIsSetOnceOnTop()
    {
        const Rows<QString, QString, QString, QString, bool> rows{
            // the sheet above, the widget's own before, what is set, its own afterwards
            {"new", "", "", "a{}", "a{}", true},
            {"set already", "", "a{}", "a{}", "a{}", false},
            {"set above", "a{}", "", "a{}", "", false},
            {"another one above", "b{}", "", "a{}", "a{}", true},
            {"set above, another one here", "a{}", "b{}", "a{}", "a{}", true},
            {"cleared", "", "a{}", "", "", true},
        };
        for (const auto &[name, sheetAbove, before, wanted, afterwards, polished] : rows) {
            QWidget above;
            auto *top = new QWidget(&above);
            auto *child = new QWidget(top);
            above.setStyleSheet(sheetAbove);
            top->setStyleSheet(before);
            above.ensurePolished();
            Polishing polishing(child);
            setRecursiveWidgetStyleSheet(top, wanted);
            QCOMPARE(top->styleSheet(), afterwards);
            QCOMPARE(polishing.count > 0, polished);
            QCOMPARE(child->styleSheet(), QString());
        }
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
    void aHeldButtonIsReleasedOnce()
    {
        const QList<QList<QVariant>> once{{true}, {false}};
        for (const QString event : {"let go", "disabled", "hidden"}) {
            TouchButton button;
            button.show();
            QSignalSpy touched(&button, &TouchButton::touched);
            QTest::mousePress(&button, Qt::LeftButton);
            button.setEnabled(event != "disabled");
            button.setVisible(event != "hidden");
            if (event != "let go")
                QCOMPARE(touched, once);
            QTest::mouseRelease(&button, Qt::LeftButton);
            QCOMPARE(touched, once);
            QVERIFY(!button.isDown());
        }
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
