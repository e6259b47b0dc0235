#include <QComboBox>
#include <QLabel>
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
    int (*operation)(BaseSubPage &); ///< saves, without a button
    QString changedWhileDown, savedWhileDown, failed; ///< said when the link is down, or no answer
};

const Rows<Form> forms{
    {"weld",
     Form{
         make<ProcessSettingsPage>, "weld_param", "arcdata", "cbx_weldingParamFileNumber",
         "ledt_weldAnnotaion", "btnWeldingSave", "btnWeldingCancel", "process setting",
         [](BaseSubPage &page) { return static_cast<ProcessSettingsPage &>(page).saveWeldParam(); },
         "warning: tessa not connected", "error: tessa is not connected",
         "error: save parameter error"}},
    {"weave",
     Form{make<WeaveFunctionPage>, "weave_param", "weavedata", "cbxWeaveFileNumber",
          "ledtWeaveAnnotation", "btnSave", "btnCancel", "weaveFunction",
          [](BaseSubPage &page) { return static_cast<WeaveFunctionPage &>(page).saveWeaveParam(); },
          "", "error: tessa not connected []", "error: save parameter error"}},
    {"seg",
     Form{make<SegParameterPage>, "seg_param", "segdata", "cbxFileNumber", "ledtAnnotation",
          "btnSave", "btnCancel", "wgtSeg",
          [](BaseSubPage &page) {
              return child<SegParameterWidget>(page.wgt(), "wgtSeg")->saveParam();
          },
          "", "error: tessa not connected []", "error: save parameter fail"}},
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
    QLabel *hint() const
    {
        QLabel *label = nullptr; // of the group that the annotation stands in
        for (QWidget *each = annotation(); !label; each = each->parentWidget())
            label = each->findChild<QLabel *>("lblNotRead", Qt::FindDirectChildrenOnly);
        return label;
    }
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
        for (const QString &request : host.takeRequests()) {
            if (!request.startsWith("watch"))
                lines.append(request);
        }
        return lines.join("; ");
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
            QCOMPARE(desk.outcome(),
                     "info: save parameter succeed; " + desk.request("get", 7) + "; "
                         + desk.request("set", 7));
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
                QCOMPARE(desk.outcome(),
                         form.failed + "; " + desk.request("get", 1) + "; "
                             + desk.request("set", 1));
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
                QVERIFY(!desk.annotation()->isEnabled() && !desk.hint()->isHidden());
                QVERIFY(desk.mend()); // a link that comes up brings the third
                const bool isReadNow = failure == FormHost::NoAnswer;
                QTRY_COMPARE(desk.annotation()->text(), isReadNow ? "" : "edited");
                QCOMPARE(desk.stored(3).isEmpty(), !isReadNow);
                QCOMPARE(desk.stored(1), first);
                desk.press(form.save);
                QCOMPARE(desk.outcome().startsWith("error: " + desk.file(3) + " is not saved"),
                         !isReadNow);
                // Called as an operation, the form is written as it stands.
                QCOMPARE(form.operation(*desk.page), 0);
                QCOMPARE(desk.stored(3)["name"].toString(), desk.file(3));
            }
        }
    }
    void aFileThatIsNotTakenIsNotShown()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form);
            desk.annotation()->setText("edited");
            desk.host.link()->answers[desk.request("get", 3)] = QVariantMap();
            desk.host.spoil(FormHost::Refused, desk.request("set", 3));
            desk.choose(3);
            QVERIFY(desk.outcome().startsWith("error: " + desk.file(3) + ": could not be created"));
            QCOMPARE(desk.annotation()->text(), "edited");
            QVERIFY(!desk.annotation()->isEnabled());
        }
    }
    void aNumberThatIsCutIsTold()
    {
        Desk desk(std::get<1>(*forms.begin()));
        QVariantMap theirs = desk.stored(1);
        theirs["name"] = desk.file(7);
        theirs["current"] = 2500.0;
        QCOMPARE(desk.host.store(desk.node(), desk.file(7), theirs), 0);
        desk.choose(7);
        const QString told = "warning: arcdata7: of \"current\", 2500 is stored and 2000 is shown";
        QCOMPARE(desk.outcome(), told + "; " + desk.request("get", 7));
        desk.press(desk.form.cancel);
        QCOMPARE(desk.outcome(), ""); // once
        desk.press(desk.form.save);
        QCOMPARE(desk.stored(7)["current"], QVariant(2000.0));
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
            };
            desk.host.spoil(FormHost::Refused, desk.request("set", 1));
            theySave("refused");
            QCOMPARE(desk.annotation()->text(), "");
            QVERIFY(desk.mend());
            theySave("theirs");
            QTRY_COMPARE(desk.annotation()->text(), "theirs");
            desk.annotation()->setText("mine");
            theySave("again");
            QString said;
            QTRY_VERIFY(
                (said += desk.outcome()).contains("\"annotation\" was changed elsewhere to again"));
            QCOMPARE(desk.annotation()->text(), "mine");
            desk.press(form.save);
            QTRY_COMPARE(theirs->text(), "mine");
        }
    }
    // What another pendant wrote is not undone, whether its news came before the save or not.
    void whatAnotherPendantSavedIsNotUndone()
    {
        for (const auto &[name, form] : forms) {
            Desk desk(form);
            QVariantMap theirs = desk.stored(1);
            theirs["of_a_newer_pendant"] = 1;
            desk.annotation()->setText("mine");
            QCOMPARE(desk.host.store(desk.node(), desk.file(1), theirs), 0);
            desk.press(form.save);
            theirs["annotation"] = "mine";
            QCOMPARE(desk.stored(1), theirs);
            theirs["annotation"] = "theirs";
            desk.annotation()->setText("mine again");
            desk.outcome();
            QCOMPARE(desk.host.store(desk.node(), desk.file(1), theirs), 0);
            desk.press(form.save);
            QVERIFY(desk.outcome().contains("\"annotation\" was changed elsewhere to theirs"));
            QCOMPARE(desk.stored(1)["annotation"].toString(), "theirs");
            desk.press(form.save); // now in full knowledge
            QCOMPARE(desk.stored(1)["annotation"].toString(), "mine again");
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
            desk.page->initPage(); // the sub-page is entered again
            QVERIFY(desk.outcome().startsWith("warning: " + desk.file(2) + lost));
            desk.annotation()->setText("edited");
            const QString file = desk.file(2);
            desk.page.reset();
            QCOMPARE(desk.host.takeMessages(),
                     QStringList("warning: " + file + lost + " [" + form.sender + "]"));
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
            QVERIFY(!desk.annotation()->isEnabled());
            QCOMPARE(desk.hint()->isHidden() ? "" : desk.hint()->text(), "not read: no link");
            // Nobody has to enter the page again.
            QVERIFY(desk.mend());
            QTRY_COMPARE(desk.annotation()->text(), QString());
            QVERIFY(desk.annotation()->isEnabled() && desk.hint()->isHidden());
            QCOMPARE(desk.stored(5).value("name").toString(), desk.file(5));
        }
    }
    // Another pendant adds a speed while the form is open; what is edited stays.
    void anOpenSegFormFollowsTheSpeeds()
    {
        FormHost host;
        SegParameterPage page(host.window(), host.window());
        page.initPage();
        child<QLineEdit>(page.wgt(), "ledtAnnotation")->setText("edited");
        auto *speed = child<QComboBox>(page.wgt(), "cbxNonWeldedSpeed");
        speed->setCurrentText("v20");
        const QVariantMap slow{{"id", "s1"}, {"name", "slow"}, {"type", "speed"}};
        QCOMPARE(host.store("orbo.project", "var._list", QVariantList{slow}), 0);
        QTRY_VERIFY(speed->findText("slow") >= 0);
        QCOMPARE(speed->currentText(), "v20");
        QCOMPARE(child<QLineEdit>(page.wgt(), "ledtAnnotation")->text(), "edited");
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
