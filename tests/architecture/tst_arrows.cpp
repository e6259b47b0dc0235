#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include "arrows.h"

/// No arrow between the folders that the picture of the house does not draw.
class tst_Arrows : public QObject
{
    Q_OBJECT

private slots:
    void everyFolderKeepsToItsRule_data();
    void everyFolderKeepsToItsRule();
    void everySourceHasARule();
    void aForbiddenArrowIsFound_data();
    void aForbiddenArrowIsFound();
};

void tst_Arrows::everyFolderKeepsToItsRule_data()
{
    QTest::addColumn<QString>("folder");
    for (const arrows::Rule &rule : arrows::rules())
        QTest::newRow(qPrintable(rule.folder)) << rule.folder;
}

void tst_Arrows::everyFolderKeepsToItsRule()
{
    QFETCH(QString, folder);
    QVERIFY(QDir(WELMO_SOURCE_DIR).exists(folder));
    const QStringList found = arrows::violations(WELMO_SOURCE_DIR, folder);
    QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
}

void tst_Arrows::everySourceHasARule()
{
    QCOMPARE(arrows::filesWithoutRule(WELMO_SOURCE_DIR).join(' '), QString());
}

void tst_Arrows::aForbiddenArrowIsFound_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("found");
    const auto row = [](const char *folder, const char *line, bool found) {
        QTest::addRow("%s: %s", folder, line) << QString(folder) << QString(line) << found;
    };
    for (const char *folder : {"src/data", "src/settings", "host/kelpCore"}) {
        row(folder, "#include <QString>", false);
        row(folder, "#include <vector>", false);
        row(folder, "#include \"beside.h\"", false);
        row(folder, "#include <kelp/moduleobject.h>", false);
        row(folder, "#include \"link/embeddedlink.h\"", true);
        row(folder, "#include <sqlite3.h>", true);
        row(folder, "  #  include \"controller/cell.h\"", true);
        row(folder, "#include \"elsewhere.h\"", true);
    }
    row("src/data", "#include \"page/arcweldpage.h\"", true);
    row("src/data", "#include \"settings/arcongroup.h\"", true);
    row("src/data", "#include \"instructions/orbodata.h\"", true);
    row("src/settings", "#include \"instructions/orbodata.h\"", false);
    row("src/settings", "#include \"page/arcweldpage.h\"", true);
    row("src/settings", "#include \"instructions/moveforms.h\"", true);
    row("src/instructions", "#include \"instructions/line/token.h\"", false);
    row("src/instructions/line", "#include \"instructions/line/token.h\"", false);
    row("src/instructions/line", "#include \"instructions/moveforms.h\"", true);
    row("src/instructions/line", "#include <kelp/moduleobject.h>", true);
    row("src/instructions/line", "#include <QWidget>", true);
    row("host/kelpCore", "#include \"pando/bmodule.h\"", true);
    row("host/kelpCore", "#include <QWidget>", true);
    row("host/kelpPando", "#include \"vu/xtheme.h\"", true);
    row("host/kelpvu", "#include \"tessa/host.h\"", true);
    row("host/tessa", "#include \"module/welmo.h\"", true);
    row("controller", "#include <sqlite3.h>", false);
    row("controller", "#include \"tessa/controllerlink.h\"", true);
    row("controller", "#include <QtWidgets/QWidget>", true);
    row("link", "#include \"pendant/options.h\"", true);
    row("pendant", "#include \"module/welmo.h\"", true);
}

void tst_Arrows::aForbiddenArrowIsFound()
{
    QFETCH(QString, folder);
    QFETCH(QString, line);
    QTemporaryDir root;
    QDir(root.path()).mkpath(folder);
    for (const char *name : {"some.cpp", "beside.h"}) {
        QFile file(root.filePath(folder + '/' + name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#pragma once\n" + line.toUtf8() + '\n');
    }
    const QStringList found = arrows::violations(root.path(), folder);
    QTEST(found.size() == 2, "found");
    QVERIFY(found.isEmpty() || found.first().startsWith(folder + "/beside.h:2: "));
    QCOMPARE(arrows::filesWithoutRule(root.path()), QStringList());
}

QTEST_GUILESS_MAIN(tst_Arrows)
#include "tst_arrows.moc"
