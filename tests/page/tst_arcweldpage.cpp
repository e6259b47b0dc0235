#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QToolButton>
#include <QtTest>

#include "page/arcweldpage.h"
#include "support/formhost.h"

using tessa::ControllerStatus;
using testsupport::child;
using testsupport::FormHost;

namespace {

const QString modeNode = QStringLiteral("arc_weld.weld_mode");
const QStringList titles{"Device Setting", "Welding Options", "Process Setting", "Weave Function"};

/// The module as the host runs it, before the link is up.
struct Desk
{
    FormHost host{FormHost::Down};
    QWidget *stretch = new QWidget;
    QWidget *page;
    QList<QToolButton *> buttons;

    Desk()
    {
        pando::frame().status->addItem(nullptr, "orbo.body.statuspage.wgtStrech2", stretch);
        auto *modules = host.host().helper()->framework();
        if (!modules->create("welmo"))
            qFatal("there is no module");
        modules->start();
        pando::frame().center->switchTo("welmo.page");
        page = pando::frame().center->currentWidget();
        buttons = child(page, "wgtNav")->findChildren<QToolButton *>();
    }
    ControllerStatus *status() { return host.host().helper()->status(); }
    QLabel *indicator() const
    {
        return qobject_cast<QLabel *>(pando::frame().status->item("welmo.labelArcMode"));
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
    void theStrip()
    {
        Desk desk;
        QStringList texts;
        for (const QToolButton *button : qAsConst(desk.buttons)) {
            texts.append(button->text());
            QVERIFY(button->isCheckable() && !button->icon().isNull());
            QVERIFY(button->minimumHeight() >= 45);
        }
        QCOMPARE(texts, titles); // without the segment editor, which is not released
        QCOMPARE(desk.checked(), QString("Device Setting under Device Setting"));
        QCOMPARE(desk.subPages(), QString("GBX_WELDSELECTION"));
        QVERIFY(desk.page->styleSheet().contains("QWidget#wgtContent"));
    }
    void subPagesAreMadeOnceAndKept()
    {
        Desk desk;
        QVERIFY(desk.host.connect());
        desk.buttons[2]->click();
        QCOMPARE(desk.checked(), QString("Process Setting under Process Setting"));
        QCOMPARE(desk.subPages(), QString("gbx_weldSelection GBX_ARCONPARAM"));

        desk.host.takeRequests();
        desk.buttons[2]->click(); // nothing happens
        QCOMPARE(desk.checked(), QString("Process Setting under Process Setting"));
        QCOMPARE(desk.host.takeRequests(), QStringList());

        desk.buttons[0]->click();
        QCOMPARE(desk.host.takeRequests(), QStringList("get arc_weld.welder_setting"));
        desk.buttons[2]->click();
        QVERIFY(desk.host.takeRequests().contains("get arc_weld.arcon_param arcondata1"));
        QCOMPARE(desk.subPages(), QString("gbx_weldSelection GBX_ARCONPARAM"));
        auto *page = qobject_cast<ArcWeldPage *>(
            desk.host.host().helper()->framework()->modules().first()->submodules().first());
        page->switchPage(); // that nobody clicked
        QCOMPARE(desk.checked(), QString("Process Setting under Process Setting"));
    }
    void availability()
    {
        Desk desk;
        const auto usable = [&desk] { return child(desk.page, "gbx_weldSelection")->isEnabled(); };
        QVERIFY(usable());
        desk.status()->setState(ControllerStatus::State::Fault);
        QVERIFY(!usable());
        for (const QToolButton *button : qAsConst(desk.buttons))
            QVERIFY(button->isEnabled());
        desk.buttons[1]->click();
        QVERIFY(!child(desk.page, "gbx_baseSetting")->isEnabled());
        desk.buttons[0]->click();
        desk.status()->setState(ControllerStatus::State::Running);
        QVERIFY(usable());
        desk.status()->setMode(ControllerStatus::Mode::Automatic);
        QVERIFY(!usable());
        desk.status()->setMode(ControllerStatus::Mode::Manual);
        desk.status()->setPower(ControllerStatus::Power::Off);
        QVERIFY(!usable());
        desk.status()->setPower(ControllerStatus::Power::On);
        desk.status()->setLevel(ControllerStatus::Level::Viewer);
        QVERIFY(usable()); // the level counts only with the next of the others
    }
    void aConnectionLoadsThePagesAnew()
    {
        Desk desk;
        desk.buttons[3]->click();
        QCOMPARE(desk.host.takeRequests(), QStringList());
        for (int i = 0; i < 2; ++i) {
            QVERIFY(desk.host.connect());
            const QStringList requests = desk.host.takeRequests();
            QVERIFY(requests.indexOf("get " + modeNode)
                    < requests.indexOf("get arc_weld.welder_setting"));
            QVERIFY(requests.contains("watch " + modeNode));
            QVERIFY(requests.contains("watch arc_weld.welder_state"));
            QVERIFY(requests.indexOf("get arc_weld.weave_param weavedata1")
                    > requests.indexOf("get arc_weld.welder_setting"));
            QVERIFY(!requests.contains("get arc_weld.arcon_param arcondata1"));
            QVERIFY(desk.host.disconnect());
            desk.host.takeRequests();
        }
        QCOMPARE(desk.host.takeMessages(), QStringList());
    }
    void whatIsCopiedIntoTheModulesTree()
    {
        Desk desk;
        desk.host.link()->answers = {{"get " + modeNode, QVariantMap{{"mode", "simu"}}},
                                     {"get arc_weld.welder_setting",
                                      QVariantMap{{"enable", true},
                                                  {"protocol", "P"},
                                                  {"mfr", "M"},
                                                  {"model", "T"},
                                                  {"current_type", 500}}}};
        QVERIFY(desk.host.connect());
        const auto value = [](const char *key) { return m(QString("welmo.") + key)->value(); };
        QCOMPARE(value("welding_options.weld_mode"), QVariant("simu"));
        QCOMPARE(value("enable"), QVariant(true));
        QCOMPARE(value("device_param.protocol"), QVariant("P"));
        QCOMPARE(value("device_param.mfr"), QVariant("M"));
        QCOMPARE(value("device_param.model"), QVariant("T"));
        QCOMPARE(value("device_param.current_type"), QVariant(500));
        QVERIFY(!desk.indicator()->pixmap(Qt::ReturnByValue).isNull());
        QCOMPARE(desk.host.takeMessages(), QStringList()); // loading announces nothing

        QVERIFY(desk.host.disconnect());
        desk.host.link()->answers.clear();
        desk.host.faults()->setCode(modeNode, 8);
        desk.host.faults()->setCode("arc_weld.welder_setting", 8);
        QVERIFY(desk.host.connect());
        QCOMPARE(value("welding_options.weld_mode"), QVariant("simu"));
        QCOMPARE(value("device_param.model"), QVariant("T"));
    }
    void theWeldModeIsShownAndTold()
    {
        Desk desk;
        QVERIFY(desk.host.connect());
        QLabel *label = desk.indicator();
        auto *layout = pando::frame().status->layout();
        QCOMPARE(layout->indexOf(label) + 1, layout->indexOf(desk.stretch));
        QSet<QByteArray> pictures;
        for (const auto &[mode, text] :
             {std::pair{"simu", "simulation mode"}, std::pair{"real", "real mode"},
              std::pair{"test_run", "test run mode"}}) {
            desk.host.notify(modeNode, QVariantMap{{"mode", mode}});
            QCOMPARE(desk.host.takeMessages(),
                     QStringList(QString("info: Switch to  %1 []").arg(text)));
            QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), QString(mode));
            const QImage picture = label->pixmap(Qt::ReturnByValue).toImage();
            QCOMPARE(picture.height(), 25);
            pictures.insert(QByteArray(reinterpret_cast<const char *>(picture.constBits()),
                                       int(picture.sizeInBytes())));
        }
        QCOMPARE(pictures.size(), 3);
        const QImage before = label->pixmap(Qt::ReturnByValue).toImage();
        desk.host.notify(modeNode, QVariantMap{{"mode", "sleep"}});
        QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage(), before);
        QCOMPARE(desk.host.takeMessages(), QStringList());
        QCOMPARE(m("welmo.welding_options.weld_mode")->getString(), QString("sleep"));
    }
};

QTEST_MAIN(tst_ArcWeldPage)
#include "tst_arcweldpage.moc"
