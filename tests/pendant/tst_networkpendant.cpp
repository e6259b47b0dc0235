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

/// A pendant of bert's on the cell, connected.
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
    void openProcessSetting()
    {
        find<QToolButton>("nav_arcweldpackage")->click();
        for (auto *button : find<QWidget>("wgtNav")->findChildren<QToolButton *>()) {
            if (button->text() == "Process Setting")
                button->click();
        }
    }
    QStringList messages()
    {
        QStringList texts;
        for (const auto &entry : app->host()->helper()->log()->entries())
            texts.append(entry.text);
        return texts;
    }

    const testsupport::LogGuard guard;
    Broker broker;
    const Cell cell{Cell::options(broker.as("cell"))};
    const QTemporaryDir folder;
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
    const auto button = [&](const char *name) { return desk.find<QPushButton>(name); };
    desk.app->window()->showPage(pendant::controllerKey);
    QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("This pendant"), patient);
    button("btnGiveControl")->click();
    QVERIFY(text().startsWith("Nobody"));

    links::MqttLink other({desk.broker.as("anna"), "cell"});
    other.open(); // takes what is free
    QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("anna"), patient);
    QVERIFY(!button("btnTakeControl")->isEnabled());
    other.close();
    QTRY_VERIFY_WITH_TIMEOUT(button("btnTakeControl")->isEnabled(), patient);
    button("btnTakeControl")->click();
    QVERIFY(text().startsWith("This pendant"));
}

void tst_NetworkPendant::aRefusedSaveKeepsTheEdit()
{
    using Kind = tessa::LinkRequest::Kind;
    const QString set = "arc_weld.weld_param";
    const QString file = "arcdata1";
    Desk desk;
    desk.openProcessSetting(); // which reads the file
    links::MqttLink other({desk.broker.as("anna"), "cell"});
    other.open();
    QTRY_VERIFY_WITH_TIMEOUT(other.isUp(), patient);
    QVariantMap theirs = other.call({Kind::Get, set, file, {}}, patient).value.toMap();
    theirs["current"] = 111.0;
    QCOMPARE(other.call({Kind::Set, set, file, theirs}, patient).code, 0);

    auto *current = desk.find<QDoubleSpinBox>("sbxWeldCurrent");
    current->setValue(222);
    desk.find<QPushButton>("btnWeldingSave")->click();
    QTRY_VERIFY(!desk.messages().filter("arcdata1 was saved by anna at ").isEmpty());
    QVERIFY(desk.messages().contains("save parameter error"));
    QCOMPARE(current->value(), 222.0);
    const QVariantMap stored = other.call({Kind::Get, set, file, {}}, patient).value.toMap();
    QCOMPARE(stored["current"].toDouble(), 111.0);
}

void tst_NetworkPendant::theWindowLivesOnWhileTheCellIsSilent()
{
    Desk desk;
    desk.openProcessSetting();
    QSemaphore silence;
    QMetaObject::invokeMethod(
        desk.cell.service(), [&silence] { silence.acquire(); }, Qt::QueuedConnection);
    QTRY_VERIFY_WITH_TIMEOUT(!desk.app->host()->service()->isConnected(), patient);
    desk.find<QPushButton>("btnWeldingSave")->click();
    QCOMPARE(desk.messages().first(), QString("tessa is not connected"));
    desk.app->window()->showPage(pendant::homeKey);
    QVERIFY(desk.app->window()->close());
    desk.app->stop();
    silence.release();
}

QTEST_MAIN(tst_NetworkPendant)
#include "tst_networkpendant.moc"
