#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "settings/segparameterpage.h"
#include "settings/segparameterwidget.h"
#include "support/formhost.h"

using testsupport::child;
using testsupport::FormHost;

/// What the segment editor adds to its file.
class tst_SegWidget : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsChosenByItsExactName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("known");
        QTest::newRow("the last") << "segdata40" << true;
        QTest::newRow("beyond") << "segdata41" << false;
        QTest::newRow("case") << "SEGDATA4" << false;
        QTest::newRow("nothing") << "" << false;
    }
    void aFileIsChosenByItsExactName()
    {
        QFETCH(QString, name);
        QFETCH(bool, known);
        FormHost host;
        SegParameterWidget widget(host.window());
        widget.init();
        widget.setFileNumber("segdata2");
        host.takeRequests();
        widget.setFileNumber(name);
        QCOMPARE(widget.getFileNumber(), known ? name : QString("segdata2"));
        const QString file = "arc_weld.seg_param " + name;
        QCOMPARE(host.takeRequests(),
                 known ? QStringList({"get " + file, "set " + file}) : QStringList());
        QCOMPARE(host.takeMessages(),
                 known ? QStringList()
                       : QStringList("error: segdata format error [SegParameterWidget]"));
    }

    void showingThePageAgainRebuildsTheLists()
    {
        FormHost host;
        SegParameterPage page(host.window(), host.window());
        page.initPage();
        QCOMPARE(page.title(), QString("Seg Parameter"));
        auto *speed = child<QComboBox>(page.wgt(), "cbxNonWeldedSpeed");
        QCOMPARE(speed->currentText(), QString("v5"));
        QCOMPARE(speed->findText("slow"), -1);
        kelp::ModuleObject *own = m("orbo.project.var._list");
        own->set(this, "p1.name", "slow");
        own->set(this, "p1.type", "speed");
        child<QComboBox>(page.wgt(), "cbxFileNumber")->setCurrentIndex(4);
        page.initPage();
        QVERIFY(speed->findText("slow") > 0);
        QCOMPARE(child<SegParameterWidget>(page.wgt(), "wgtSeg")->getFileNumber(),
                 QString("segdata5"));
        host.takeMessages();
        child<QPushButton>(page.wgt(), "btnSave")->click(); // connected once, however often shown
        QCOMPARE(host.takeMessages(), QStringList("info: save parameter succeed [wgtSeg]"));
    }
};

QTEST_MAIN(tst_SegWidget)
#include "tst_segwidget.moc"
