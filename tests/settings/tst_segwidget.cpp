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
    void aFileIsChosenByItsExactName()
    {
        FormHost host;
        SegParameterWidget widget(host.window());
        widget.init();
        widget.setFileNumber("segdata2");
        host.takeRequests();
        for (const char *unknown : {"segdata41", "SEGDATA4", ""}) {
            widget.setFileNumber(unknown);
            QCOMPARE(widget.getFileNumber(), QString("segdata2"));
            QCOMPARE(host.takeRequests(), QStringList());
            QCOMPARE(host.takeMessages(),
                     QStringList("error: segdata format error [SegParameterWidget]"));
        }
        widget.setFileNumber("segdata40");
        QCOMPARE(widget.getFileNumber(), QString("segdata40"));
        QCOMPARE(host.takeRequests().join('|'),
                 QString("get arc_weld.seg_param segdata40|set arc_weld.seg_param segdata40"));
        QCOMPARE(host.takeMessages(), QStringList());
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
