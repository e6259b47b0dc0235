#include <QAbstractButton>
#include <QMetaEnum>
#include <QTest>

#include "support/testpendant.h"

using controller::Faults;
using testsupport::TestPendant;

class TestControllerPage : public QObject
{
    Q_OBJECT
private slots:
    void switches()
    {
        TestPendant pendant;
        pendant.open("controller");
        const auto faults = QMetaEnum::fromType<Faults::Fault>();
        for (int i = faults.keyCount() - 1; i >= 0; --i) {
            const auto fault = static_cast<Faults::Fault>(faults.value(i));
            pendant.click(QStringLiteral("btnFault_") + faults.key(i));
            QVERIFY2(pendant.faults()->isOn(fault), faults.key(i));
        }
        pendant.click("btnClearFaults");
        for (int i = 0; i < faults.keyCount(); ++i)
            QVERIFY(!pendant.faults()->isOn(static_cast<Faults::Fault>(faults.value(i))));
    }
    // Faults are switched from elsewhere, too.
    void switchesFollow()
    {
        TestPendant pendant;
        pendant.faults()->set(Faults::Fault::NoGas, true);
        auto *button = pendant.find<QAbstractButton>("btnFault_NoGas");
        QTRY_VERIFY(button->isChecked());
        pendant.faults()->clear();
        QTRY_VERIFY(!button->isChecked());
    }
    void refusesOnce()
    {
        TestPendant pendant;
        pendant.open("controller");
        pendant.choose("cbxRefusedPath", "arc_weld.weld_param");
        pendant.chooseCode("cbxRefusalCode", 7);
        pendant.click("btnRefuseNext");
        auto *service = pendant.host()->service();
        QCOMPARE(service->get(nullptr, "arc_weld.arcon_param")->getInt(), 0);
        QCOMPARE(service->get(nullptr, "arc_weld.weld_param")->getInt(), 7);
        QCOMPARE(service->get(nullptr, "arc_weld.weld_param")->getInt(), 0);
    }
    void losesAnswer()
    {
        TestPendant pendant;
        pendant.open("controller");
        pendant.click("btnLoseNext");
        const auto answer = pendant.host()->service()->exchange(
            {tessa::LinkRequest::Kind::Get, "arc_weld.weld_mode", {}, {}}, 50);
        QVERIFY(answer->getInt() != 0);
        QVERIFY(!pendant.host()->service()->isConnected());
        QVERIFY(pendant.waitConnected());
    }
};

QTEST_MAIN(TestControllerPage)
#include "tst_controllerpage.moc"
