#include <QtTest>

#include "kelp/workspace.h"
#include "support/files.h"
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
    "font": {"default": "16px sans"},
    "color": {"btn_bkg": "#112233", "black": "#445566"},
    "border": {"btn": "1px solid red"},
    "image": {"widget/own": "own.png", "widget/home": "widget/home.png"}
})";

const char *const rulesText = R"([
    {"name": "QLabel#b, QWidget[func=touch]", "min-height": "30px", "color": "$color$black"},
    {"name": "QLabel", "color": "a $color$nobody b$size$big", "font": "$font$default"},
    {"color": "red"},
    {"name": "A", "a": "$color$btn_bkg $border$btn", "b": "$image$widget/own", "c": 5, "d": "5$, 6$",
     "e": "$image$widget/home"}
])";

const char *const sheetText =
    "QLabel#b, QWidget[func=touch] { color: #445566; min-height: 30px; } "
    "QLabel { color: a b; font: 16px sans; } "
    "A { a: #112233 1px solid red; b: url(%1/images/own.png); c: 5; d: 5$, 6$; "
    "e: url(:/tessa/theme/images/widget/home.png); }";

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
    void rulesBecomeOneSheet()
    {
        const QString path = write("rules.json", QByteArray("\xEF\xBB\xBF") + rulesText);
        const QString broken = write("broken.json", "[{\"name\" \"A\"}]");
        QSignalSpy problems(&m_theme, &ThemeManager::problem);
        for (int i = 0; i < 2; ++i) { // each mistake is told once
            QCOMPARE(m_theme.genStyleSheet(path).simplified(),
                     QString(sheetText).arg(m_folder.path()));
            QCOMPARE(m_theme.genStyleSheet(broken), QString());
        }
        QCOMPARE(problems.size(), 3);
        QVERIFY(problems.at(0).at(0).toString().startsWith(path + ": rule 3 "));
        QVERIFY(problems.at(1).at(0).toString().contains("$color$nobody, $size$big"));
        QVERIFY(problems.at(2).at(0).toString().startsWith(broken + ':'));
    }
    void iconsComeFromTheThemeAndFromAliases()
    {
        QVERIFY(!m_theme.getIcon("widget", "home").isNull());
        QVERIFY(m_theme.getIcon("handle", "key").isNull());
        m_theme.addAlias("sample");
        QVERIFY(!m_theme.getIcon("handle", "key").isNull());
        QVERIFY(m_theme.getIcon("handle", "nobody").isNull());
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
        QCOMPARE(painted("black").pixelColor(0, 0), QColor(0x44, 0x55, 0x66));
        QCOMPARE(painted("red").pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(painted("black").pixelColor(1, 0).alpha(), 0);
        QVERIFY(vu::xtheme::pixmap(m_folder.filePath("nobody.png"), "black").isNull());
    }
    void aSheetIsSetOnceOnTop()
    {
        QWidget above;
        QWidget top(&above);
        for (const char *sheet : {"a{}", "b{}", ""}) {
            setRecursiveWidgetStyleSheet(&top, sheet);
            QCOMPARE(top.styleSheet(), sheet);
        }
        above.setStyleSheet("a{}");
        setRecursiveWidgetStyleSheet(&top, "a{}"); // the window above has it already
        QCOMPARE(top.styleSheet(), QString());
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
        for (const QString &event : QStringList{"let go", "disabled", "hidden"}) {
            TouchButton button;
            button.show();
            QString heard;
            connect(&button, &TouchButton::touched, [&](bool down) { heard += down ? 'D' : 'U'; });
            QTest::mousePress(&button, Qt::LeftButton);
            button.setEnabled(event != "disabled");
            button.setVisible(event != "hidden");
            QCOMPARE(heard, QString(event == "let go" ? "D" : "DU"));
            QTest::mouseRelease(&button, Qt::LeftButton);
            QCOMPARE(heard, QString("DU"));
            QVERIFY(!button.isDown());
        }
    }

private:
    QString write(const QString &name, const QByteArray &text)
    {
        testsupport::writeFile(m_folder.filePath(name), text);
        return m_folder.filePath(name);
    }

    QTemporaryDir m_folder;
    ThemeManager m_theme;
};

QTEST_MAIN(tst_Look)
#include "tst_look.moc"
