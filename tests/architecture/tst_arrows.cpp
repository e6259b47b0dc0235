#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include "arrows.h"
#include "support/rows.h"

/// No arrow between the folders that the picture of the house does not draw.
class tst_Arrows : public QObject
{
    Q_OBJECT

private slots:
    void everyFolderKeepsToItsRule()
    {
        for (const arrows::Rule &rule : arrows::rules()) {
            QVERIFY(QDir(WELMO_SOURCE_DIR).exists(rule.folder));
            const QStringList found = arrows::violations(WELMO_SOURCE_DIR, rule.folder);
            QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
        }
    }
    void everySourceHasARule()
    {
        QCOMPARE(arrows::filesWithoutRule(WELMO_SOURCE_DIR).join(' '), QString());
    }
    void aForbiddenArrowIsFound()
    {
        testsupport::Rows<QString, bool> rows{
            {"src/data", R"("page/arcweldpage.h")", true},
            {"src/data", R"("settings/arcongroup.h")", true},
            {"src/data", R"("instructions/orbodata.h")", true},
            {"src/settings", R"("instructions/orbodata.h")", false},
            {"src/settings", R"("page/arcweldpage.h")", true},
            {"src/settings", R"("instructions/moveforms.h")", true},
            {"src/instructions", R"("instructions/line/token.h")", false},
            {"src/instructions/line", R"("instructions/line/token.h")", false},
            {"src/instructions/line", R"("instructions/moveforms.h")", true},
            {"src/instructions/line", "<kelp/moduleobject.h>", true},
            {"src/instructions/line", "<QWidget>", true},
            {"host/kelpCore", R"("pando/bmodule.h")", true},
            {"host/kelpCore", "<QWidget>", true},
            {"host/kelpPando", R"("vu/xtheme.h")", true},
            {"host/kelpvu", R"("tessa/host.h")", true},
            {"host/tessa", R"("module/welmo.h")", true},
            {"controller", "<sqlite3.h>", false},
            {"controller", R"("tessa/controllerlink.h")", true},
            {"controller", "<QtWidgets/QWidget>", true},
            {"link", R"("pendant/options.h")", true},
            {"pendant", R"("module/welmo.h")", true},
        };
        for (const char *folder : {"src/data", "src/settings", "host/kelpCore"}) {
            for (const char *header :
                 {"<QString>", "<vector>", R"("beside.h")", "<kelp/moduleobject.h>"})
                rows.add({folder, header, false});
            for (const char *header : {R"("link/embeddedlink.h")", "<sqlite3.h>",
                                       R"("controller/cell.h")", R"("elsewhere.h")"})
                rows.add({folder, header, true});
        }
        for (const auto &[folder, header, forbidden] : rows) {
            QTemporaryDir root;
            QDir(root.path()).mkpath(folder);
            for (const QString name : {"some.cpp", "beside.h"}) {
                QFile file(root.filePath(folder + '/' + name));
                QVERIFY(file.open(QIODevice::WriteOnly));
                file.write("#pragma once\n  #  include " + header.toUtf8() + '\n');
            }
            const QStringList found = arrows::violations(root.path(), folder);
            QVERIFY2(found.size() == (forbidden ? 2 : 0), qPrintable(folder + ' ' + header));
            QVERIFY(found.isEmpty() || found.first().startsWith(folder + "/beside.h:2: "));
            QCOMPARE(arrows::filesWithoutRule(root.path()), QStringList());
        }
    }
};

QTEST_GUILESS_MAIN(tst_Arrows)
#include "tst_arrows.moc"
