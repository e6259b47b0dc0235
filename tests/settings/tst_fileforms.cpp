#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "settings/processsettingspage.h"
#include "settings/segparameterpage.h"
#include "settings/segparameterwidget.h"
#include "settings/weavefunctionpage.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

template<typename Page>
std::unique_ptr<BaseSubPage> make(FormHost &host)
{
    auto page = std::make_unique<Page>(host.window(), host.window());
    page->initPage();
    return page;
}

/// A form with one numbered file, by its names and the words in which it speaks.
struct Form
{
    std::unique_ptr<BaseSubPage> (*make)(FormHost &);
    QString set, prefix, combo, annotation, save, cancel, sender;
    QString changedWhileDown, savedWhileDown, failed; ///< said when the link is down, or no answer
};

const Rows<Form> forms{
    {"weld",
     Form{make<ProcessSettingsPage>, "weld_param", "arcdata", "cbx_weldingParamFileNumber",
          "ledt_weldAnnotaion", "btnWeldingSave", "btnWeldingCancel", "process setting",
          "warning: tessa not connected", "error: tessa is not connected",
          "error: save parameter error"}},
    {"weave",
     Form{make<WeaveFunctionPage>, "weave_param", "weavedata", "cbxWeaveFileNumber",
          "ledtWeaveAnnotation", "btnSave", "btnCancel", "weaveFunction", "",
          "error: tessa not connected []", "error: save parameter error"}},
    {"seg",
     Form{make<SegParameterPage>, "seg_param", "segdata", "cbxFileNumber", "ledtAnnotation",
          "btnSave", "btnCancel", "wgtSeg", "", "error: tessa not connected []",
          "error: save parameter fail"}},
};

/// A host, one form in it, and what an operator does with it.
struct Desk
{
    FormHost host;
    const Form &form;
    std::unique_ptr<BaseSubPage> page;

    explicit Desk(const Form &form, FormHost::Link link = FormHost::Connected)
        : host(link)
        , form(form)
        , page(form.make(host))
    {
        outcome();
    }
    QString node() const { return "arc_weld." + form.set; }
    QString file(int number) const { return form.prefix + QString::number(number); }
    QString request(const char *verb, int number) const
    {
        return QString(verb) + ' ' + node() + ' ' + file(number);
    }
    QVariantMap stored(int number) { return host.stored(node(), file(number)).toMap(); }
    QComboBox *combo() const { return child<QComboBox>(page->wgt(), form.combo); }
    QLineEdit *annotation() const { return child<QLineEdit>(page->wgt(), form.annotation); }
    void choose(int number) const { combo()->setCurrentIndex(number - 1); }
    void press(const QString &button) const { child<QPushButton>(page->wgt(), button)->click(); }
    bool mend()
    {
        const bool up = host.mend();
        outcome();
        return up;
    }
    /// What was said by the form itself and, behind it, what was asked.
    QString outcome()
    {
        QStringList lines = host.takeMessages();
        for (QString &line : lines)
            line.remove(" [" + form.sender + ']');
        return (lines + host.takeRequests()).join("; ");
    }
};

} // namespace

/// How every form chooses, reads, creates, keeps and saves a numbered file.
class tst_FileForms : public QObject
{
    Q_OBJECT

private slots:
    void aMissingFileIsCreated()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form);
            QCOMPARE(desk.combo()->itemText(39), desk.file(40));
            QCOMPARE(desk.combo()->count(), 40);
            desk.choose(3);
            QCOMPARE(desk.outcome(), desk.request("get", 3) + "; " + desk.request("set", 3));
            QVariantMap expected = desk.stored(1); // as the first file was created
            expected["name"] = desk.file(3);
            QCOMPARE(desk.stored(3), expected);
            QVERIFY(expected.size() > 4);
            desk.choose(1);
            desk.choose(3);
            QCOMPARE(desk.outcome(), desk.request("get", 1) + "; " + desk.request("get", 3));
        }
    }
    void anotherPendantsFileIsReadEditedAndSaved()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form);
            QVariantMap theirs = desk.stored(1);
            theirs["name"] = desk.file(7);
            theirs["annotation"] = "theirs";
            theirs["of_a_newer_pendant"] = QVariantMap{{"kept", true}};
            QCOMPARE(desk.host.store(desk.node(), desk.file(7), theirs), 0);
            desk.choose(7);
            QCOMPARE(desk.annotation()->text(), QString("theirs"));
            desk.annotation()->setText("edited");
            desk.press(form.cancel);
            QCOMPARE(desk.annotation()->text(), QString("theirs"));
            QCOMPARE(desk.outcome(), desk.request("get", 7));

            desk.annotation()->setText("mine");
            desk.press(form.save);
            QCOMPARE(desk.outcome(), "info: save parameter succeed; " + desk.request("set", 7));
            theirs["annotation"] = "mine";
            QCOMPARE(desk.stored(7), theirs);
        }
    }
    void aFailureTouchesNothing()
    {
        for (const auto &[name, form] : forms) {
            for (const auto failure : {FormHost::NoAnswer, FormHost::Refused}) {
                Desk desk(form);
                const QVariantMap first = desk.stored(1);
                desk.annotation()->setText("edited");
                desk.host.spoil(failure, desk.request("set", 1));
                desk.press(form.save);
                QCOMPARE(desk.outcome(), form.failed + "; " + desk.request("set", 1));
                QVERIFY(desk.mend());

                desk.host.spoil(failure, desk.request("get", 1));
                if (auto *seg = desk.page->wgt()->findChild<SegParameterWidget *>())
                    seg->initPage();
                else
                    desk.page->initPage();
                const QString outcome = desk.outcome();
                QVERIFY(outcome.contains("error: " + desk.file(1) + ": read parameter error"));
                QVERIFY(!outcome.contains("set arc_weld"));
                QVERIFY(desk.mend());

                desk.host.spoil(failure, desk.request("get", 3));
                desk.choose(3);
                QCOMPARE(desk.outcome(),
                         "error: " + desk.file(3) + ": read parameter error; "
                             + desk.request("get", 3));
                QCOMPARE(desk.annotation()->text(), "edited");
                // What is shown is the first file; it must not become the third.
                QVERIFY(desk.mend());
                desk.press(form.save);
                QCOMPARE(desk.outcome(), form.failed);
                QVERIFY(desk.stored(3).isEmpty());
                QCOMPARE(desk.stored(1), first);
            }
        }
    }
    // Two forms, one file: what one saved the other shows, but where it is being edited.
    void whatAnotherFormSavedIsNotUndone()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form);
            const auto other = form.make(desk.host);
            auto *theirs = child<QLineEdit>(other->wgt(), form.annotation);
            auto *save = child<QPushButton>(other->wgt(), form.save);
            const auto theySave = [&](const QString &text) {
                theirs->setText(text);
                save->click();
                QCoreApplication::processEvents();
            };
            desk.host.spoil(FormHost::Refused, desk.request("set", 1));
            theySave("refused");
            QCOMPARE(desk.annotation()->text(), "");
            QVERIFY(desk.mend());
            theySave("theirs");
            QCOMPARE(desk.annotation()->text(), "theirs");
            desk.annotation()->setText("mine");
            theySave("again");
            QCOMPARE(desk.annotation()->text(), "mine");
            desk.press(form.save);
            QCoreApplication::processEvents();
            QCOMPARE(theirs->text(), "mine");
        }
    }
    void lostChangesAreTold()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form);
            const QString lost = ": changes were not saved";
            desk.annotation()->setText("edited");
            desk.choose(2);
            QVERIFY(desk.outcome().startsWith("warning: " + desk.file(1) + lost));
            desk.annotation()->setText("edited");
            const QString file = desk.file(2);
            desk.page.reset();
            QCOMPARE(desk.host.takeMessages(), QStringList("warning: " + file + lost + " []"));
        }
    }
    void whileTheLinkIsDown()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form, FormHost::Down);
            QCOMPARE(desk.combo()->currentText(), desk.file(1));
            desk.annotation()->setText("edited");
            desk.choose(5);
            QCOMPARE(desk.outcome(), form.changedWhileDown);
            desk.press(form.save);
            QCOMPARE(desk.outcome(), form.savedWhileDown);
            QCOMPARE(desk.annotation()->text(), "edited");
            QVERIFY(desk.mend());
            // Defaults are shown that nobody chose: they must not become the file.
            desk.press(form.save);
            QCOMPARE(desk.outcome(), form.failed);
            QVERIFY(desk.stored(5).isEmpty());
            desk.page->initPage();
            QCOMPARE(desk.annotation()->text(), QString());
            QCOMPARE(desk.stored(5).value("name").toString(), desk.file(5));
        }
    }
    void showingTheSegPageAgainRebuildsTheLists()
    {
        FormHost host;
        SegParameterPage page(host.window(), host.window());
        page.initPage();
        auto *speed = child<QComboBox>(page.wgt(), "cbxNonWeldedSpeed");
        QCOMPARE(speed->findText("slow"), -1);
        kelp::ModuleObject *own = m("orbo.project.var._list");
        own->set(this, "p1.name", "slow");
        own->set(this, "p1.type", "speed");
        child<QComboBox>(page.wgt(), "cbxFileNumber")->setCurrentIndex(4);
        page.initPage();
        QVERIFY(speed->findText("slow") > 0);
        QCOMPARE(child<SegParameterWidget>(page.wgt(), "wgtSeg")->getFileNumber(), "segdata5");
        host.takeMessages();
        child<QPushButton>(page.wgt(), "btnSave")->click(); // connected once, however often shown
        QCOMPARE(host.takeMessages(), QStringList("info: save parameter succeed [wgtSeg]"));
    }
};

QTEST_MAIN(tst_FileForms)
#include "tst_fileforms.moc"
