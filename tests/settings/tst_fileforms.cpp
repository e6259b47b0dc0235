#include <QtTest>

#include "settings/processsettingspage.h"
#include "settings/segparameterpage.h"
#include "settings/segparameterwidget.h"
#include "settings/weavefunctionpage.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;

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

const std::vector<Row<Form>> forms{
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
struct Fixture
{
    FormHost host;
    const Form &form;
    std::unique_ptr<BaseSubPage> page;

    /// With the form of the row that is run.
    explicit Fixture(FormHost::Link link = FormHost::Connected)
        : Fixture(std::get<1>(currentRow<Form>()), link)
    { }
    explicit Fixture(const Form &form, FormHost::Link link = FormHost::Connected)
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
    void aMissingFileIsCreated_data() { addRows(forms); }
    void aMissingFileIsCreated()
    {
        Fixture ui;
        QCOMPARE(ui.combo()->itemText(39), ui.file(40));
        QCOMPARE(ui.combo()->count(), 40);
        ui.choose(3);
        QCOMPARE(ui.outcome(), ui.request("get", 3) + "; " + ui.request("set", 3));
        QVariantMap expected = ui.stored(1); // as the first file was created
        expected["name"] = ui.file(3);
        QCOMPARE(ui.stored(3), expected);
        QVERIFY(expected.size() > 4);
        ui.choose(1);
        ui.choose(3);
        QCOMPARE(ui.outcome(), ui.request("get", 1) + "; " + ui.request("get", 3));
        ui.annotation()->setText("edited"); // and shown only where the controller takes it
        ui.host.spoil(FormHost::Refused, ui.request("set", 5));
        ui.host.link()->answers[ui.request("get", 5)] = QVariantMap();
        ui.choose(5);
        QVERIFY(ui.outcome().contains("error: " + ui.file(5) + ": could not be created"));
        QVERIFY(ui.annotation()->text() == "edited" && !ui.annotation()->isEnabled());
    }
    void anotherPendantsFileIsReadEditedAndSaved_data() { addRows(forms); }
    void anotherPendantsFileIsReadEditedAndSaved()
    {
        Fixture ui;
        QVariantMap theirs = ui.stored(1);
        theirs["name"] = ui.file(7);
        theirs["annotation"] = "theirs";
        theirs["of_a_newer_pendant"] = QVariantMap{{"kept", true}};
        QCOMPARE(ui.host.store(ui.node(), ui.file(7), theirs), 0);
        ui.choose(7);
        QCOMPARE(ui.annotation()->text(), QString("theirs"));
        ui.annotation()->setText("edited");
        ui.press(ui.form.cancel);
        QCOMPARE(ui.annotation()->text(), QString("theirs"));
        QCOMPARE(ui.outcome(), ui.request("get", 7));

        ui.annotation()->setText("mine");
        ui.press(ui.form.save);
        QCOMPARE(ui.outcome(),
                 "info: save parameter succeed; " + ui.request("get", 7) + "; "
                     + ui.request("set", 7));
        theirs["annotation"] = "mine";
        QCOMPARE(ui.stored(7), theirs);
    }
    void aFailureTouchesNothing_data() { addRows(forms); }
    void aFailureTouchesNothing()
    {
        for (const auto failure : {FormHost::NoAnswer, FormHost::Refused}) {
            Fixture ui;
            const QVariantMap first = ui.stored(1);
            ui.annotation()->setText("edited");
            ui.host.spoil(failure, ui.request("set", 1));
            ui.press(ui.form.save);
            QCOMPARE(ui.outcome(),
                     ui.form.failed + "; " + ui.request("get", 1) + "; " + ui.request("set", 1));
            QVERIFY(ui.mend());

            ui.host.spoil(failure, ui.request("get", 1));
            if (auto *seg = ui.page->wgt()->findChild<SegParameterWidget *>())
                seg->initPage();
            else
                ui.page->initPage();
            const QString outcome = ui.outcome();
            QVERIFY(outcome.contains("error: " + ui.file(1) + ": read parameter error"));
            QVERIFY(!outcome.contains("set arc_weld"));
            QVERIFY(ui.mend());

            ui.host.spoil(failure, ui.request("get", 3));
            ui.choose(3);
            QCOMPARE(ui.outcome(),
                     "error: " + ui.file(3) + ": read parameter error; " + ui.request("get", 3));
            QCOMPARE(ui.annotation()->text(), "edited");
            // What is shown is the first file; it must not become the third.
            QVERIFY(!ui.annotation()->isEnabled() && !ui.hint()->isHidden());
            QVERIFY(ui.mend()); // a link that comes up brings the third
            const bool isReadNow = failure == FormHost::NoAnswer;
            QTRY_COMPARE(ui.annotation()->text(), isReadNow ? "" : "edited");
            QCOMPARE(ui.stored(3).isEmpty(), !isReadNow);
            QCOMPARE(ui.stored(1), first);
            ui.press(ui.form.save);
            QCOMPARE(ui.outcome().startsWith("error: " + ui.file(3) + " is not saved"), !isReadNow);
            // Called as an operation, the form is written as it stands.
            QCOMPARE(ui.form.operation(*ui.page), 0);
            QCOMPARE(ui.stored(3).value("name").toString(), ui.file(3));
        }
    }
    void aNumberThatIsCutIsTold()
    {
        Fixture ui(std::get<1>(*forms.begin()));
        QVariantMap theirs = ui.stored(1);
        theirs["name"] = ui.file(7);
        theirs["current"] = 2500.0;
        QCOMPARE(ui.host.store(ui.node(), ui.file(7), theirs), 0);
        ui.choose(7);
        const QString told =
            "warning: arcdata7: of \"WeldCurrent\", 2500 is stored and 2000 is shown";
        QCOMPARE(ui.outcome(), told + "; " + ui.request("get", 7));
        ui.press(ui.form.cancel);
        QCOMPARE(ui.outcome(), ""); // once
        ui.press(ui.form.save);
        QCOMPARE(ui.stored(7).value("current"), QVariant(2000.0));
    }
    // Two forms, one file: what one saved the other shows, but where it is being edited.
    void whatAnotherFormSavedIsNotUndone_data() { addRows(forms); }
    void whatAnotherFormSavedIsNotUndone()
    {
        Fixture ui;
        const auto other = ui.form.make(ui.host);
        auto *theirs = child<QLineEdit>(other->wgt(), ui.form.annotation);
        auto *save = child<QPushButton>(other->wgt(), ui.form.save);
        const auto theySave = [&](const QString &text) {
            theirs->setText(text);
            save->click();
        };
        ui.host.spoil(FormHost::Refused, ui.request("set", 1));
        theySave("refused");
        QCOMPARE(ui.annotation()->text(), "");
        QVERIFY(ui.mend());
        theySave("theirs");
        QTRY_COMPARE(ui.annotation()->text(), "theirs");
        ui.annotation()->setText("mine");
        theySave("again");
        QString said;
        QTRY_VERIFY(
            (said += ui.outcome()).contains("\"Annotation\" was changed elsewhere to again"));
        QCOMPARE(ui.annotation()->text(), "mine");
        ui.press(ui.form.save);
        QTRY_COMPARE(theirs->text(), "mine");
    }
    // What another pendant wrote is not undone, whether its news came before the save or not.
    void whatAnotherPendantSavedIsNotUndone_data() { addRows(forms); }
    void whatAnotherPendantSavedIsNotUndone()
    {
        Fixture ui;
        QVariantMap theirs = ui.stored(1);
        theirs["of_a_newer_pendant"] = 1;
        ui.annotation()->setText("mine");
        QCOMPARE(ui.host.store(ui.node(), ui.file(1), theirs), 0);
        ui.press(ui.form.save);
        theirs["annotation"] = "mine";
        QCOMPARE(ui.stored(1), theirs);
        theirs["annotation"] = "theirs";
        ui.annotation()->setText("mine again");
        ui.outcome();
        QCOMPARE(ui.host.store(ui.node(), ui.file(1), theirs), 0);
        ui.press(ui.form.save);
        QVERIFY(ui.outcome().contains("\"Annotation\" was changed elsewhere to theirs"));
        QCOMPARE(ui.stored(1).value("annotation").toString(), "theirs");
        ui.press(ui.form.save); // now in full knowledge
        QCOMPARE(ui.stored(1).value("annotation").toString(), "mine again");
    }
    void lostChangesAreTold_data() { addRows(forms); }
    // A number that is half typed stays as it is, whatever comes from elsewhere.
    void nothingIsTypedIntoABoxThatIsBeingEdited()
    {
        Fixture ui(std::get<1>(*forms.begin()));
        auto *box = child<QDoubleSpinBox>(ui.page->wgt(), "sbxWeldCurrent");
        ui.page->wgt()->window()->show();
        ui.page->wgt()->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(ui.page->wgt()->window()));
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, "5");
        const QString half = box->text();
        QVariantMap theirs = ui.stored(1);
        theirs["current"] = 111.0;
        QCOMPARE(ui.host.store(ui.node(), ui.file(1), theirs), 0);
        QString said;
        QTRY_VERIFY(
            (said += ui.outcome()).contains("\"WeldCurrent\" was changed elsewhere to 111"));
        QCOMPARE(box->text(), half);
        ui.press(ui.form.cancel); // the operator's own wish
        QCOMPARE(box->value(), 111.0);
    }
    void lostChangesAreTold()
    {
        Fixture ui;
        const QString lost = ": changes were not saved";
        ui.annotation()->setText("edited");
        ui.choose(2);
        QVERIFY(ui.outcome().startsWith("warning: " + ui.file(1) + lost));
        ui.annotation()->setText("edited");
        ui.page->initPage(); // the sub-page is entered again
        QVERIFY(ui.outcome().startsWith("warning: " + ui.file(2) + lost));
        ui.annotation()->setText("edited");
        const QString file = ui.file(2);
        ui.page.reset();
        QCOMPARE(ui.host.takeMessages(),
                 QStringList("warning: " + file + lost + " [" + ui.form.sender + "]"));
    }
    void aLostLinkCostsNoEdit_data() { addRows(forms); }
    void aLostLinkCostsNoEdit()
    {
        Fixture ui;
        ui.annotation()->setText("edited");
        QVERIFY(ui.host.disconnect() && ui.host.connect());
        ui.page->initPage(); // as the page around it does with a connection
        QCOMPARE(ui.annotation()->text(), "edited");
        ui.press(ui.form.save);
        QCOMPARE(ui.stored(1).value("annotation").toString(), "edited");
    }
    void whileTheLinkIsDown_data() { addRows(forms); }
    void whileTheLinkIsDown()
    {
        Fixture ui(FormHost::Down);
        QCOMPARE(ui.combo()->currentText(), ui.file(1));
        ui.annotation()->setText("edited");
        ui.choose(5);
        QCOMPARE(ui.outcome(), ui.form.changedWhileDown);
        ui.press(ui.form.save);
        QCOMPARE(ui.outcome(), ui.form.savedWhileDown);
        QCOMPARE(ui.annotation()->text(), "edited");
        QVERIFY(!ui.annotation()->isEnabled());
        QCOMPARE(ui.hint()->isHidden() ? "" : ui.hint()->text(), "not read: no link");
        // Nobody has to enter the page again.
        QVERIFY(ui.mend());
        QTRY_COMPARE(ui.annotation()->text(), QString());
        QVERIFY(ui.annotation()->isEnabled() && ui.hint()->isHidden());
        QCOMPARE(ui.stored(5).value("name").toString(), ui.file(5));
    }
    // Another pendant adds a speed while the form is open, and it is shown again; what is edited
    // stays.
    void anOpenSegFormFollowsTheSpeeds()
    {
        FormHost host;
        SegParameterPage page(host.window(), host.window());
        page.initPage();
        auto *annotation = child<QLineEdit>(page.wgt(), "ledtAnnotation");
        annotation->setText("edited");
        auto *speed = child<QComboBox>(page.wgt(), "cbxNonWeldedSpeed");
        speed->setCurrentText("v20");
        const QVariantMap slow{{"id", "s1"}, {"name", "slow"}, {"type", "speed"}};
        QCOMPARE(host.store("orbo.project", "var._list", QVariantList{slow}), 0);
        QTRY_VERIFY(speed->findText("slow") >= 0);
        QCOMPARE(speed->currentText() + annotation->text(), "v20edited");
        m("orbo.project.var._list")->set(this, "s1.name", "slower");
        child<QComboBox>(page.wgt(), "cbxFileNumber")->setCurrentIndex(4);
        page.initPage();
        QVERIFY(speed->findText("slower") > 0);
        QCOMPARE(child<SegParameterWidget>(page.wgt(), "wgtSeg")->getFileNumber(), "segdata5");
        host.takeMessages();
        child<QPushButton>(page.wgt(), "btnSave")->click(); // connected once, however often shown
        QCOMPARE(host.takeMessages(), QStringList("info: save parameter succeed [wgtSeg]"));
    }
};

QTEST_MAIN(tst_FileForms)
#include "tst_fileforms.moc"
