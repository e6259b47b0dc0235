#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include "instructions/moveparamwidget.h"
#include "instructions/weavedatadialog.h"
#include "support/formhost.h"

using testsupport::child;
using testsupport::FormHost;

namespace {

QList<WeaveDataDialog *> dialogsOf(const QWidget &panel)
{
    return panel.findChildren<WeaveDataDialog *>();
}

} // namespace

/// The panel of speed, zone, tool, work object and weave file.
class tst_MoveParameters : public QObject
{
    Q_OBJECT
private slots:
    void itemsCarryTheirNames()
    {
        FormHost host;
        MoveParamWidget panel(host.window());
        const QHash<QString, int> counts{
            {"cbxSpeed", 9}, {"cbxZone", 7}, {"cbxTool", 2}, {"cbxWobj", 2}, {"cbxWeaveData", 41}};
        for (auto it = counts.begin(); it != counts.end(); ++it) {
            const auto *combo = child<QComboBox>(&panel, it.key());
            QCOMPARE(combo->count(), it.value());
            for (int i = 0; i < combo->count(); ++i)
                QCOMPARE(combo->itemData(i), QVariant(combo->itemText(i)));
        }
        const auto *weave = child<QComboBox>(&panel, "cbxWeaveData");
        QCOMPARE(weave->itemText(0), "NULL");
        QCOMPARE(weave->itemText(40), "weavedata40");
        QCOMPARE(panel.getParam(), "v5,fine,tool0,wobj0");
    }
    void textsOfTheContract()
    {
        for (const char *language : {"en", "zh_CN"}) {
            FormHost host(FormHost::Connected, language);
            MoveParamWidget panel(host.window());
            const auto label = [&panel](const char *name) {
                return child<QLabel>(&panel, name)->text();
            };
            QCOMPARE(label("lblSpeed"), "速度(V)：");
            QCOMPARE(label("lblZone"), "转弯区(Z)：");
            QCOMPARE(label("lblTool"), "工具(T)：");
            QCOMPARE(label("lblWobj"), "工件(W)：");
            QCOMPARE(label("lblWeaveData"), "摆动变量(weavedata)：");
            QCOMPARE(child<QPushButton>(&panel, "btnWeaveDataDetail")->text(), "详细");
        }
    }
    void refreshKeepsTheChoice()
    {
        FormHost host;
        MoveParamWidget panel(host.window());
        panel.setToolText("torch1");
        panel.setSpeedText("v100");
        auto *tools = m("orbo.project.tool._list");
        tools->set(nullptr, "torch0", QVariantMap{{"id", "torch0"}, {"name", "torch0"}});
        panel.refresh();
        QCOMPARE(child<QComboBox>(&panel, "cbxTool")->count(), 3);
        QCOMPARE(panel.getParam(), "v100,fine,torch1,wobj0");
        QSignalSpy changed(&panel, &MoveParamWidget::toolChanged);
        tools->removeChild("torch1");
        panel.refresh();
        QCOMPARE(panel.getParam(), "v100,fine,tool0,wobj0");
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.takeFirst().first(), QVariant("tool0"));
    }
    void tellsToolAndWorkObject()
    {
        FormHost host;
        MoveParamWidget panel(host.window());
        QSignalSpy tool(&panel, &MoveParamWidget::toolChanged);
        QSignalSpy wobj(&panel, &MoveParamWidget::wobjChanged);
        panel.setToolText("torch1");
        QCOMPARE(tool.count(), 1);
        QCOMPARE(tool.first().first(), QVariant("torch1"));
        panel.setWobj("fixture1");
        QCOMPARE(wobj.count(), 1);
        QCOMPARE(wobj.first().first(), QVariant("fixture1"));
        panel.setWobj("fixture9");
        QCOMPARE(wobj.count(), 1);
        QCOMPARE(host.takeMessages(), QStringList("error: wobj format error [MoveParamWidget]"));
    }
    void opensOneDetailsDialog()
    {
        FormHost host;
        MoveParamWidget panel(host.window());
        auto *details = child<QPushButton>(&panel, "btnWeaveDataDetail");
        details->click();
        QVERIFY(dialogsOf(panel).isEmpty()); // without a file
        QCOMPARE(host.takeRequests(), QStringList());
        for (const char *file : {"weavedata7", "weavedata8"}) {
            panel.setWeaveData(QString("\"%1\"").arg(file));
            details->click();
            panel.onBtnDetailClicked();
            QCOMPARE(dialogsOf(panel).size(), 1);
            QPointer<WeaveDataDialog> dialog = dialogsOf(panel).first();
            QVERIFY(dialog->isVisible());
            QCOMPARE(dialog->getCurrentWeaveData(), file);
            dialog->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(!dialog);
        }
    }
};

QTEST_MAIN(tst_MoveParameters)
#include "tst_moveparameters.moc"
