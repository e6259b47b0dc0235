#include "kelp/registry.h"
#include "module/welmo.h"
#include "pando/frame.h"
#include "support/formhost.h"
#include "tessa/host.h"
#include "vu/xnav.h"

namespace {

/// A host at its start: it has a frame, but no bound tree, no translation and no link.
struct BareHost
{
    explicit BareHost(const QString &language = "en")
        : host({folder.path(), language})
    {
        if (testsupport::FormHost::isNasty()) {
            kelp::habits() = testsupport::FormHost::nastyHabits();
            host.setLink(std::make_unique<testsupport::RecordingLink>());
            if (!QTest::qWaitFor([this] { return host.service()->isConnected(); }))
                qFatal("the controller did not come up"); // before the module is made
        }
        pando::frame().center = new pando::CenterWidget(&window);
        pando::frame().rightSide = new pando::ExpandSideBar(&window);
        pando::frame().status = new pando::StatusBar(&window);
        module.reset(bfactory()->creator("welmo")(nullptr));
    }

    QTemporaryDir folder;
    QWidget window;
    tessa::Host host;
    std::unique_ptr<pando::BModule> module; // destroyed first, as by a host
};

} // namespace

/// What the library registers, and what the module makes in which step.
class TestWelmo : public QObject
{
    Q_OBJECT

private slots:
    void construction()
    {
        BareHost bare("zh_CN");
        QCOMPARE(kelp::pluginManager()->creator("welmo")(), 11);
        QCOMPARE(kelp::versionManager().size(), 8);
        QCOMPARE(m("welmo.version")->getString(), QString("1.1.11"));
        QCOMPARE(QCoreApplication::translate("Welmo", "Arc Weld"), QString("弧焊"));
        QVERIFY(!bare.host.helper()->themeManager()->getIcon("handle", "gasPressed").isNull());
        QFile log(kelp::Workspace::current()->dataFolder() + "/log/welmo");
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString line = QString::fromUtf8(log.readAll());
        QVERIFY2(line.startsWith("[S|") && line.endsWith(" welmo v1.1.11\n"), qPrintable(line));
    }
    // The module adds its menu entry in init and its views in setup.
    void initThenSetup()
    {
        for (const bool withSideBar : {true, false}) {
            BareHost bare;
            if (!withSideBar)
                pando::frame().rightSide = nullptr;
            QVERIFY(m(vu::xnav::entriesPath)->isMissing());
            bare.module->init();
            const QVariantMap entry{{"title", "Arc Weld"},    {"group", "robot.pack"},
                                    {"parent", ""},           {"position", -1},
                                    {"owner", "welmo"},       {"nav", "welmo.page"},
                                    {"key", "arcweldpackage"}};
            QCOMPARE(m(vu::xnav::entriesPath)->cmobjs().first()->toVariant(), QVariant(entry));
            QVERIFY(bare.module->submodules().isEmpty());
            bare.module->setup();
            QCOMPARE(bare.module->submodules().size(), withSideBar ? 2 : 1);
            QVERIFY(pando::frame().center->switchTo("welmo.page"));
            QVERIFY(!withSideBar || pando::frame().rightSide->switchTo("welmo.page"));
            QVERIFY(bare.host.helper()->log()->entries().isEmpty());
        }
    }
};

QTEST_MAIN(TestWelmo)
#include "tst_welmo.moc"
