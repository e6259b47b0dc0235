#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include "broker.h"
#include "cell.h"
#include "link/mqttlink.h"
#include "linkwords.h"
#include "pendant/pages.h"
#include "pendant/pendantapp.h"
#include "pendant/pendantwindow.h"
#include "support/logguard.h"
#include "tessa/host.h"

namespace {

/// A pendant of bert's on the cell, connected; anna's link to it is not up yet.
struct Desk
{
    Desk()
    {
        pendant::Options options{"en", "light", folder.path(), WELMO_MODULE};
        options.controller = QString("mqtt://bert:%1@127.0.0.1:%2/cell")
                                 .arg(broker.as("bert").password)
                                 .arg(broker.port());
        app = std::make_unique<pendant::PendantApp>(options, pendant::connectTo);
        app->start();
        if (!QTest::qWaitFor([this] { return app->host()->service()->isConnected(); }, patient))
            qFatal("the pendant did not come up");
    }

    template<typename Widget>
    Widget *find(const char *name)
    {
        return app->window()->findChild<Widget *>(name);
    }
    void click(const char *button) { find<QAbstractButton>(button)->click(); }
    void openProcessSetting()
    {
        click("nav_arcweldpackage");
        for (auto *button : find<QWidget>("wgtNav")->findChildren<QToolButton *>()) {
            if (button->text() == "Process Setting")
                button->click();
        }
    }
    QString messages()
    {
        QString texts;
        for (const auto &entry : app->host()->helper()->log()->entries())
            texts += entry.text + '|';
        return texts;
    }

    const testsupport::LogGuard guard;
    Broker broker;
    const Cell cell{Cell::options(broker.as("cell"))};
    const QTemporaryDir folder;
    links::MqttLink other{{broker.as("anna"), "cell"}};
    std::unique_ptr<pendant::PendantApp> app;
};

} // namespace

/// The real pendant with the real library, and a cell on the network.
class tst_NetworkPendant : public QObject
{
    Q_OBJECT
private slots:
    void controlIsShownAndPassedOn();
    void aRefusedSaveKeepsTheEdit();
    void theWindowLivesOnWhileTheCellIsSilent();
};

void tst_NetworkPendant::controlIsShownAndPassedOn()
{
    Desk desk;
    const auto text = [&] { return desk.find<QLabel>("lblControl")->text(); };
    const auto *take = desk.find<QPushButton>("btnTakeControl");
    desk.app->window()->showPage(pendant::controllerKey);
    QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("This pendant"), patient);
    desk.click("btnGiveControl");
    QVERIFY(text().startsWith("Nobody"));
    desk.other.open(); // takes what is free
    QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("anna"), patient);
    QVERIFY(!take->isEnabled());
    desk.other.close();
    QTRY_VERIFY_WITH_TIMEOUT(take->isEnabled(), patient);
    desk.click("btnTakeControl");
    QVERIFY(text().startsWith("This pendant"));
}

void tst_NetworkPendant::aRefusedSaveKeepsTheEdit()
{
    using Kind = tessa::LinkRequest::Kind;
    const QString set = "arc_weld.weld_param";
    const QString file = "arcdata1";
    Desk desk;
    desk.openProcessSetting(); // which reads the file
    desk.other.open();
    QTRY_VERIFY_WITH_TIMEOUT(desk.other.isUp(), patient);
    const auto stored = [&] {
        return desk.other.call({Kind::Get, set, file, {}}, patient).value.toMap();
    };
    QVariantMap theirs = stored();
    theirs["current"] = 111.0;
    QCOMPARE(desk.other.call({Kind::Set, set, file, theirs}, patient).code, 0);
    auto *current = desk.find<QDoubleSpinBox>("sbxWeldCurrent");
    current->setValue(222);
    desk.click("btnWeldingSave");
    QTRY_VERIFY(desk.messages().contains("arcdata1 was saved by anna at "));
    QVERIFY(desk.messages().contains("save parameter error|"));
    QCOMPARE(current->value(), 222.0);
    QCOMPARE(stored()["current"].toDouble(), 111.0);
}

void tst_NetworkPendant::theWindowLivesOnWhileTheCellIsSilent()
{
    Desk desk;
    desk.openProcessSetting();
    QSemaphore silence;
    QMetaObject::invokeMethod(
        desk.cell.service(), [&silence] { silence.acquire(); }, Qt::QueuedConnection);
    QTRY_VERIFY_WITH_TIMEOUT(!desk.app->host()->service()->isConnected(), patient);
    desk.click("btnWeldingSave");
    QVERIFY(desk.messages().startsWith("tessa is not connected|"));
    desk.app->window()->showPage(pendant::homeKey);
    QVERIFY(desk.app->window()->close());
    desk.app->stop();
    silence.release();
}

QTEST_MAIN(tst_NetworkPendant)
#include "tst_networkpendant.moc"
