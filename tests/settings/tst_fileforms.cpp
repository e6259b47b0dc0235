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
    std::unique_ptr<BaseSubPage> (*make)(FormHost &) = nullptr;
    QString set, prefix, combo, annotation, save, cancel, sender;
    int (*operation)(BaseSubPage &) = nullptr; ///< saves, without a button
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

/// A host with one form, and what an operator does there.
struct Fixture
{
    FormHost host;
    const Form &form;
    std::unique_ptr<BaseSubPage> page;

    /// With the form of the current row.
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
    /// What the form said, then what it asked the controller.
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
        ui.annotation()->setText("edited"); // stays when the controller refuses the new file
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
            // The form still shows the first file, which must not be saved as the third.
            QVERIFY(!ui.annotation()->isEnabled() && !ui.hint()->isHidden());
            QVERIFY(ui.mend()); // with the link the third file is read
            const bool isReadNow = failure == FormHost::NoAnswer;
            QTRY_COMPARE(ui.annotation()->text(), isReadNow ? "" : "edited");
            QCOMPARE(ui.stored(3).isEmpty(), !isReadNow);
            QCOMPARE(ui.stored(1), first);
            ui.press(ui.form.save);
            QCOMPARE(ui.outcome().startsWith("error: " + ui.file(3) + " is not saved"), !isReadNow);
            // A host that calls the operation gets the form written as it is.
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
        QCOMPARE(ui.outcome(), ""); // the warning comes once
        ui.press(ui.form.save);
        QCOMPARE(ui.stored(7).value("current"), QVariant(2000.0));
    }
    // Of two forms on one file, each shows what the other saved, except where it is being edited.
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
    // A save never undoes what another pendant wrote, even if the news of it comes after the save.
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
        ui.press(ui.form.save); // the operator has read the warning
        QCOMPARE(ui.stored(1).value("annotation").toString(), "mine again");
    }
    // News from elsewhere leaves a number alone that is half typed.
    void nothingIsTypedIntoABoxThatIsBeingEdited()
    {
        Fixture ui(std::get<1>(*forms.begin()));
        auto *box = child<QDoubleSpinBox>(ui.page->wgt(), "sbxWeldCurrent");
        const QString half = ui.host.typeHalf(box, "5");
        QVariantMap theirs = ui.stored(1);
        theirs["current"] = 111.0;
        QCOMPARE(ui.host.store(ui.node(), ui.file(1), theirs), 0);
        QString said;
        QTRY_VERIFY(
            (said += ui.outcome()).contains("\"WeldCurrent\" was changed elsewhere to 111"));
        QCOMPARE(box->text(), half);
        ui.press(ui.form.cancel); // who presses Cancel wants the stored number
        QCOMPARE(box->value(), 111.0);
    }
    void lostChangesAreTold_data() { addRows(forms); }
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
        ui.page->initPage(); // as the page around the form does
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
        // The form reads its file by itself.
        QVERIFY(ui.mend());
        QTRY_COMPARE(ui.annotation()->text(), QString());
        QVERIFY(ui.annotation()->isEnabled() && ui.hint()->isHidden());
        QCOMPARE(ui.stored(5).value("name").toString(), ui.file(5));
    }
    // When another pendant adds a speed, the open form offers it and keeps what is being edited.
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
        child<QPushButton>(page.wgt(), "btnSave")
            ->click(); // the button acts once, however often the page was shown
        QCOMPARE(host.takeMessages(), QStringList("info: save parameter succeed [wgtSeg]"));
    }
};

QTEST_MAIN(tst_FileForms)
#include "tst_fileforms.moc"
