#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QToolButton>
#include <QtTest>
#include <optional>

#include "page/arcweldpage.h"
#include "support/formhost.h"
#include "support/rows.h"

using tessa::ControllerStatus;
using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

const QString modeNode = QStringLiteral("arc_weld.weld_mode");

/// The module as the host runs it, most often before the link is up.
struct Desk
{
    FormHost host;
    QWidget *stretch = new QWidget(host.window());
    QWidget *page;
    QList<QToolButton *> buttons;

    explicit Desk(FormHost::Link link = FormHost::Down)
        : host(link)
    {
        if (pando::StatusBar *bar = pando::frame().status)
            bar->addItem(nullptr, "orbo.body.statuspage.wgtStrech2", stretch);
        auto *modules = host.host().helper()->framework();
        if (!modules->create("welmo"))
            qFatal("there is no module");
        modules->start();
        pando::frame().center->switchTo("welmo.page");
        page = pando::frame().center->currentWidget();
        buttons = child(page, "wgtNav")->findChildren<QToolButton *>();
    }
    ControllerStatus *status() { return host.host().helper()->status(); }
    /// What the indicator shows; nothing on a host without a status bar.
    static std::optional<QPixmap> picture()
    {
        if (!pando::frame().status)
            return {};
        auto *label = qobject_cast<QLabel *>(pando::frame().status->item("welmo.labelArcMode"));
        return label->pixmap(Qt::ReturnByValue);
    }
    /// The titles of the sub-pages that exist, the shown one in capitals.
    QString subPages() const
    {
        QStringList list;
        for (const char *group :
             {"gbx_weldSelection", "gbx_baseSetting", "gbx_arconParam", "gbxWeaveSetting"}) {
            for (const QGroupBox *box : page->findChildren<QGroupBox *>(group))
                list.append(box->isVisibleTo(page) ? QString(group).toUpper() : group);
        }
        return list.join(' ');
    }
    QString checked() const
    {
        QStringList list;
        for (const QToolButton *button : buttons) {
            if (button->isChecked())
                list.append(button->text());
        }
        return list.join('|') + " under " + child<QLabel>(page, "lblTitle")->text();
    }
};

} // namespace

/// The arc-weld page: its strip of sub-pages, what it loads, and the mode in the status bar.
class tst_ArcWeldPage : public QObject
{
    Q_OBJECT

private slots:
    void subPagesAreMadeOnceAndKept()
    {
        Desk desk;
        QStringList texts;
        for (const QToolButton *button : qAsConst(desk.buttons))
            texts.append(button->text());
        // Without the segment editor, which is not released.
        QCOMPARE(texts.join('|'), "Device Setting|Welding Options|Process Setting|Weave Function");
        QCOMPARE(desk.checked(), "Device Setting under Device Setting");
        QCOMPARE(desk.subPages(), "GBX_WELDSELECTION");
        QVERIFY(desk.host.connect());
        desk.buttons[2]->click();
        desk.host.takeRequests();
        desk.buttons[2]->click(); // nothing happens
        auto *page = qobject_cast<ArcWeldPage *>(
            desk.host.host().helper()->framework()->modules().first()->submodules().first());
        page->switchPage(); // that nobody clicked
        QCOMPARE(desk.checked(), "Process Setting under Process Setting");
        QCOMPARE(desk.host.takeRequests(), QStringList());

        desk.buttons[0]->click();
        QCOMPARE(desk.host.takeRequests(), QStringList("get arc_weld.welder_setting"));
        desk.buttons[2]->click();
        QVERIFY(desk.host.takeRequests().contains("get arc_weld.arcon_param arcondata1"));
        QCOMPARE(desk.subPages(), "gbx_weldSelection GBX_ARCONPARAM");
    }
    void availability()
    {
        Desk desk;
        const auto usable = [&desk](const char *box) { return child(desk.page, box)->isEnabled(); };
        desk.status()->setState(ControllerStatus::State::Fault);
        QVERIFY(!usable("gbx_weldSelection") && desk.buttons[1]->isEnabled());
        desk.buttons[1]->click();
        QVERIFY(!usable("gbx_baseSetting"));
        desk.buttons[0]->click();
        desk.status()->setState(ControllerStatus::State::Running);
        desk.status()->setLevel(ControllerStatus::Level::Viewer);
        QVERIFY(usable("gbx_weldSelection")); // the level counts only with the next of the others
        desk.status()->setPower(ControllerStatus::Power::Off);
        QVERIFY(!usable("gbx_weldSelection"));
    }
    void aConnectionLoadsThePagesAnew()
    {
        Desk desk;
        desk.buttons[3]->click();
        QCOMPARE(desk.host.takeRequests(), QStringList());
        for (int i = 0; i < 2; ++i) {
            QVERIFY(desk.host.connect());
            const QStringList requests = desk.host.takeRequests();
            for (const char *watched : {"weld_mode", "welder_state"})
                QVERIFY(requests.contains(QString("watch arc_weld.") + watched));
            const QStringList inOrder{"get arc_weld.weld_mode", "get arc_weld.welder_setting",
                                      "get arc_weld.weave_param weavedata1"};
            QCOMPARE(requests.filter("get arc_weld.").filter(QRegularExpression("(?<!_state)$")),
                     inOrder);
            QVERIFY(desk.host.disconnect());
            desk.host.takeRequests();
        }
        QCOMPARE(desk.host.takeErrors(), QStringList());
    }
    // Before the module is made, or before it has drawn anything.
    void theLinkMayBeUpSooner()
    {
        {
            Desk desk(FormHost::Connected);
            const QStringList requests = desk.host.takeRequests();
            QCOMPARE(requests.count("get arc_weld.weld_mode"), 1);
            QVERIFY(requests.contains("watch arc_weld.welder_state"));
            QVERIFY(!Desk::picture() || !Desk::picture()->isNull());
        }
        FormHost host(FormHost::Down);
        ArcWeldPage page(host.window(), nullptr);
        page.init();
        QVERIFY(host.connect());
        page.render();
        QCOMPARE(host.takeRequests().count("get arc_weld.weld_mode"), 1);
        QVERIFY(!Desk::picture() || !Desk::picture()->isNull());
    }
    void whatIsCopiedIntoTheModulesTree()
    {
        Desk desk;
        const QVariantMap setting{{"enable", true},
                                  {"protocol", "P"},
                                  {"mfr", "M"},
                                  {"model", "T"},
                                  {"current_type", 500}};
        const QVariantMap mode{{"mode", "simu"}};
        desk.host.link()->answers = {{"get " + modeNode, mode},
                                     {"watch " + modeNode, mode},
                                     {"get arc_weld.welder_setting", setting}};
        for (const bool isReadable : {true, false}) { // else it stays as it was
            if (!isReadable) {
                desk.host.link()->answers.clear();
                desk.host.faults()->setCode(modeNode, 8);
                desk.host.faults()->setCode("arc_weld.welder_setting", 8);
            }
            QVERIFY(desk.host.connect());
            QVariantMap copied = m("welmo.device_param")->toVariant().toMap();
            copied["enable"] = m("welmo.enable")->value();
            QCOMPARE(copied, setting);
            QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), "simu");
            QVERIFY(!Desk::picture() || !Desk::picture()->isNull());
            QVERIFY(desk.host.disconnect());
        }
    }
    void theWeldModeIsShownAndTold()
    {
        Desk desk;
        QVERIFY(desk.host.connect());
        if (pando::StatusBar *bar = pando::frame().status) {
            auto *layout = bar->layout();
            QCOMPARE(layout->indexOf(bar->item("welmo.labelArcMode")) + 1,
                     layout->indexOf(desk.stretch));
        }
        QCoreApplication::processEvents(); // what a first subscription may tell
        desk.host.takeMessages();
        QList<QImage> pictures;
        const Rows<QStringList> rows{
            {"simu", QStringList("info: Switch to  simulation mode []")},
            {"real", QStringList("info: Switch to  real mode []")},
            {"test_run", QStringList("info: Switch to  test run mode []")},
            {"sleep", QStringList()},
        };
        for (const auto &[mode, said] : rows) {
            desk.host.notify(modeNode, QVariantMap{{"mode", QString(mode)}});
            QCOMPARE(desk.host.takeMessages(), said);
            QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), QString(mode));
            if (!Desk::picture())
                continue;
            const QImage picture = Desk::picture()->toImage();
            QCOMPARE(picture.height(), 25);
            if (said.isEmpty())
                QCOMPARE(picture, pictures.last());
            else
                QVERIFY(!pictures.contains(picture));
            pictures.append(picture);
        }
    }
};

QTEST_MAIN(tst_ArcWeldPage)
#include "tst_arcweldpage.moc"
