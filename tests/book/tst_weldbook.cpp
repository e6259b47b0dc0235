#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLibrary>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

#include "book/records/seambook.h"
#include "host/fakelink.h"
#include "pando/frame.h"
#include "support/datarows.h"
#include "support/files.h"
#include "tessa/host.h"

using namespace testsupport;
using namespace welmo::book;

namespace {

/// The book of a data folder, which it is made in where there is none.
std::unique_ptr<SeamBook> openBook(const QString &folder)
{
    QDir(folder).mkdir("weldbook");
    QString problem;
    auto database = Database::open(folder + "/weldbook/weldbook.db", Database::ReadWrite, &problem);
    if (!database)
        qFatal("%s", qPrintable(problem));
    return std::make_unique<SeamBook>(std::move(database));
}

/// A host with the weld book alone, on a controller that tells what every one does and no more.
class Cell
{
public:
    explicit Cell(const QString &folder,
                  const QVariantMap &files = {{"arcdata3", file("arcdata3", 100)}},
                  bool enforcesReleases = false)
        : host({folder})
        , m_frame(new pando::CenterWidget(&window))
    {
        pando::frame() = {m_frame, nullptr, nullptr};
        if (!library.load())
            qFatal("%s", qPrintable(library.errorString()));
        host.helper()->framework()->create("weldbook");
        host.helper()->framework()->start();
        auto made = std::make_unique<FakeLink>();
        link = made.get();
        link->node("arc_weld.welder_state", QVariantMap{{"state", "ok"}});
        link->node("arc_weld.weld_mode", QVariantMap{{"mode", "real"}});
        link->node("arc_weld.weld_param", files);
        link->node("cell.identity", QVariantMap{{"bound", enforcesReleases}});
        host.setLink(std::move(made));
        link->setUp(true);
        QCoreApplication::processEvents();
    }
    ~Cell() { host.stopModules(); }

    static QVariantMap file(const char *name, double current)
    {
        return {{"name", name}, {"current", current}, {"weave", QVariantMap{{"left", 1.5}}}};
    }
    void change(const QVariantMap &news) { emit link->notified("arc_weld.weld_param", news); }
    void click(const char *button) { window.findChild<QPushButton *>(button)->click(); }
    QTableView *table(const char *name) { return window.findChild<QTableView *>(name); }
    /// Shows the page of files and chooses the first one.
    void openFiles()
    {
        window.show();
        click("btnFiles");
        QTRY_COMPARE(text("tblFiles", 0, 0), QString("arcdata3"));
        table("tblFiles")->selectRow(0);
    }
    /// Writes of the controller from now on, "KEY CURRENT", and what @p act does in each.
    void onWrites(const std::function<void(const QString &key)> &act)
    {
        link->duringCall = [=](const tessa::LinkRequest &request) {
            if (request.kind != FakeLink::Kind::Set)
                return;
            written += request.key + ' ' + request.payload.toMap().value("current").toString();
            act(request.key);
        };
    }
    QString text(const char *table, int row, int column)
    {
        return this->table(table)->model()->index(row, column).data().toString();
    }
    void tell(const QVariantMap &news) { emit link->notified("arc_weld.welder_state", news); }
    bool logHas(const QString &part)
    {
        const auto &entries = host.helper()->log()->entries();
        return std::any_of(entries.begin(), entries.end(),
                           [&](const auto &entry) { return entry.text.contains(part); });
    }

    QLibrary library{QStringLiteral(WELMO_BOOK)};
    QWidget window;
    tessa::Host host;
    FakeLink *link;
    QStringList written;

private:
    pando::CenterWidget *m_frame;
};

} // namespace

/// The plug-in as a host loads it.
class tst_WeldBook : public QObject
{
    Q_OBJECT
private slots:
    void aControllerThatTellsLittleIsRecordedAndJudged()
    {
        const QTemporaryDir folder;
        Limits limits;
        limits.file = "arcdata3";
        limits.current = {100, 200};
        Seam earlier;
        earlier.started = QDateTime::currentMSecsSinceEpoch();
        earlier.ended = ending::regular;
        {
            const auto book = openBook(folder.path());
            QVERIFY(book->setLimits(limits) && book->begin(&earlier));
        }
        {
            Cell cell(folder.path());
            const auto *list = cell.table("tblWelds")->model();
            QTRY_COMPARE(list->rowCount(), 1);
            cell.tell({{"welding_name", "arcdata3"}, {"current", 150.0}, {"voltage", 20.0}});
            cell.tell({{"current", 250.0}, {"voltage", 20.0}});
            QTRY_VERIFY(cell.logHas("arcdata3: current 250.0 A is outside its limits"));
            cell.link->setUp(false);
            QTRY_COMPARE(cell.text("tblWelds", 0, 0), QString::fromUtf8("✗")); // it is closed
        }
        const QVector<Seam> seams = openBook(folder.path())->list({});
        QCOMPARE(seams.size(), 2);
        QCOMPARE(seams[0].verdict, Verdict::Red);
        QCOMPARE(seams[0].ended, ending::linkLost);
        QCOMPARE(seams[0].reason, QString("current incomplete"));
        QVERIFY(seams[0].program.isEmpty() && seams[0].user.isEmpty() && !seams[0].gasTime);
        QVERIFY(openBook(folder.path())->course(seams[0].id).samples.size() > 5);
    }
    void exportsTheListAndAWeld()
    {
        const QTemporaryDir folder;
        Seam seam;
        seam.started = QDateTime::currentMSecsSinceEpoch();
        seam.ended = ending::regular;
        QVERIFY(openBook(folder.path())->begin(&seam));
        Cell cell(folder.path());
        QTRY_COMPARE(cell.table("tblWelds")->model()->rowCount(), 1);
        cell.table("tblWelds")->selectRow(0);
        const auto actions = cell.window.findChild<QPushButton *>("btnExport")->menu()->actions();
        for (QAction *action : actions)
            action->trigger();
        const QDir reports(folder.filePath("weldbook/reports"));
        QTRY_COMPARE(reports.entryList(QDir::Files).size(), 4);
        QTRY_VERIFY(cell.logHas("written: "));
        QDir(reports).removeRecursively();
        testsupport::writeFile(reports.path(), "in the way");
        actions.first()->trigger();
        QTRY_VERIFY(cell.logHas(" was not written: "));
    }
    void everyChangeOfAFileIsAVersion()
    {
        const QTemporaryDir folder;
        for (const bool again : {false, true}) { // what it knows already is no change
            Cell cell(folder.path());
            cell.openFiles();
            QTRY_COMPARE(cell.text("tblVersions", 0, 3),
                         QString(again ? "made again" : "as found"));
            if (again)
                break;
            const auto change = [](int number, const char *user, int old, int now) {
                const QVariantMap what{{"at", "current"}, {"old", old}, {"new", now}};
                return QVariantMap{{"number", number},
                                   {"key", "arcdata3"},
                                   {"user", user},
                                   {"changes", QVariantList{what}}};
            };
            const QVariantList entries{change(1, "anna", 100, 120), change(2, "otto", 120, 130)};
            cell.link->node("cell.audit", QVariantMap{{"entries", entries}});
            cell.change({{"arcdata3", Cell::file("arcdata3", 120)}});
            QTRY_COMPARE(cell.text("tblVersions", 0, 2), QString("anna"));
            QCOMPARE(cell.text("tblVersions", 0, 3), QString("Current: 100 A → 120 A"));
            cell.link->node("arc_weld.weld_param", {});
            cell.change({{"arcdata3", {}}});
            QTRY_COMPARE(cell.text("tblFiles", 0, 0), QString());
        }
    }
    void anotherControllerIsAnotherCell()
    {
        const QTemporaryDir folder;
        {
            Cell cell(folder.path());
            cell.openFiles();
            QTRY_COMPARE(cell.text("tblVersions", 0, 3), QString("as found")); // the book is open
            cell.window.findChild<QDoubleSpinBox *>("sbxEfficiency")->setValue(0.6);
            cell.click("btnLimitsSave");
            for (const char *store : {"left", "right"}) {
                cell.link->setUp(false);
                QCoreApplication::processEvents();
                cell.link->node("cell.identity", QVariantMap{{"store", store}});
                cell.link->node("arc_weld.weld_param",
                                QVariantMap{{"arcdata3", Cell::file("arcdata3", store[0])}});
                cell.link->setUp(true);
                QCoreApplication::processEvents();
                cell.tell({{"welding_name", "arcdata3"},
                           {"current", 100.0 + store[0]},
                           {"voltage", 20.0}});
            }
        }
        const auto book = openBook(folder.path());
        const QVector<Seam> seams = book->list({});
        QCOMPARE(seams.size(), 2);
        QCOMPARE(seams[1].cell + ' ' + seams[1].ended, "left " + ending::linkLost);
        QCOMPARE(seams[0].cell + ' ' + seams[0].ended, "right " + ending::interrupted);
        QVERIFY(seams[0].weldVersion > seams[1].weldVersion);
        QCOMPARE(seams[0].efficiency, 0.6);
        QCOMPARE(book->setting("efficiency"), QString("0.6"));
    }
    void whatIsReleasedIsKeptAndWatched_data()
    {
        addRows<bool>({{"by the controller", true}, {"by the book, afterwards", false}});
    }
    void whatIsReleasedIsKeptAndWatched()
    {
        const auto &[name, enforced] = currentRow<bool>();
        const QTemporaryDir folder;
        for (const bool again : {false, true}) {
            Cell cell(folder.path(), {{"arcdata3", Cell::file("arcdata3", 100)}}, enforced);
            cell.openFiles();
            if (!again) {
                cell.click("btnReleaseFile");
                cell.window.findChild<QDoubleSpinBox *>("sbxTrim_current")->setValue(10);
                cell.click("btnReleaseSave");
                QTRY_VERIFY(cell.logHas("arcdata3 is released"));
                const QStringList sent = cell.link->log.filter("S arc_weld.released arcdata3 ");
                QCOMPARE(sent.size(), enforced ? 1 : 0);
                QVERIFY(!enforced || sent[0].contains(R"("current":100,"name":"arcdata3")"));
                QVERIFY(!enforced || sent[0].contains(R"("current":10)"));
                const QVariantMap release{
                    {"content", Cell::file("arcdata3", 100)}, {"current", 10}, {"user", "anna"}};
                emit cell.link->notified("arc_weld.released", QVariantMap{{"arcdata3", release}});
            }
            QTRY_COMPARE(cell.text("tblVersions", 0, 0), QString(again ? "4" : "1"));
            const auto *line = cell.window.findChild<QLabel *>("lblRelease");
            QTRY_VERIFY((enforced && again) || line->text().contains("Current ± 10 %"));
            QCOMPARE(line->text().contains("anna"), enforced && !again);
            cell.change({{"arcdata3", Cell::file("arcdata3", again ? 100 : 110)}});
            QVERIFY(again || !cell.logHas("an operator may set"));
            cell.change({{"arcdata3", Cell::file("arcdata3", 111)}});
            QTRY_COMPARE(cell.logHas("arcdata3: an operator may set a current of 90 to 110"),
                         !enforced);
        }
    }
    void aStepThatIsRefusedOrOutdatedIsTold()
    {
        const QTemporaryDir folder;
        Cell cell(folder.path());
        cell.openFiles();
        cell.window.findChild<QComboBox *>("cbxCopyTarget")->setCurrentText("arcdata5");
        cell.click("btnCopyFile");
        QVERIFY(cell.link->log.last().startsWith("S arc_weld.weld_param arcdata5 ")
                && cell.link->log.last().contains("\"name\":\"arcdata5\""));
        cell.link->node("arc_weld.weld_param arcdata5", Cell::file("arcdata5", 1));
        cell.click("btnUndoFiles"); // somebody else has written it meanwhile
        QVERIFY(cell.logHas("arcdata5 was changed since"));
        cell.link->fail("arc_weld.weld_param arcdata5", 13);
        cell.click("btnCopyFile");
        QVERIFY(cell.logHas("arcdata5 cannot be read"));
    }
    void aRestoreIsAllOrNothing()
    {
        const QTemporaryDir folder;
        Cell cell(
            folder.path(),
            {{"arcdata3", Cell::file("arcdata3", 100)}, {"arcdata4", Cell::file("arcdata4", 100)}});
        cell.window.show();
        const QVariantMap running{{"test_run_speed", 250}};
        cell.link->node("arc_weld.running_param", running);
        cell.click("btnBackup");
        cell.click("btnMakeBackup");
        cell.link->node("arc_weld.running_param", {}); // nobody has stored any

        QVERIFY(cell.logHas("backup written: "));
        for (const char *file : {"arcdata3", "arcdata4"}) {
            cell.change({{file, Cell::file(file, 250)}});
            cell.link->node(QStringLiteral("arc_weld.weld_param ") + file, Cell::file(file, 250));
        }
        cell.click("btnReadBackup");
        QCOMPARE(cell.text("tblRestore", 1, 1), QString("arcdata3"));
        QCOMPARE(cell.text("tblRestore", 1, 2), QString("Current: 250 A → 100 A"));
        cell.onWrites([&cell](const QString &file) {
            if (file == "arcdata4")
                cell.link->fail("arc_weld.weld_param arcdata4", 13);
        });
        cell.click("btnRestore");
        QTRY_VERIFY(cell.logHas("arcdata4: the user may not do that"));
        QCOMPARE(cell.written,
                 QStringList({" ", "arcdata3 100", "arcdata4 100", " ", "arcdata3 250"}));
        QVERIFY(cell.link->log.filter("S arc_weld.running_param").last().contains(":200"));
        // Where not even that works, it is done when the controller is back.
        cell.link->node("arc_weld.weld_param arcdata4", Cell::file("arcdata4", 250));
        cell.click("btnReadBackup");
        cell.onWrites([&cell](const QString &) { cell.link->up = false; });
        cell.click("btnRestore");
        QTRY_VERIFY(cell.logHas("could not be put back") || !cell.host.service()->isConnected());
        cell.written.clear();
        cell.onWrites([](const QString &) {});
        cell.link->setUp(false);
        cell.link->setUp(true);
        QTRY_VERIFY(cell.logHas("a restore that was cut off was taken back"));
        QCOMPARE(cell.written, QStringList({" ", "arcdata3 250", "arcdata4 250"}));
    }
    void aBookThatCannotBeOpenedIsTold()
    {
        const QTemporaryDir folder;
        testsupport::writeFile(folder.filePath("weldbook"), "in the way");
        Cell cell(folder.path());
        QTRY_VERIFY(cell.logHas("weldbook.db"));
        cell.tell({{"current", 150.0}, {"voltage", 20.0}});
        cell.tell({{"current", 0.0}, {"voltage", 0.0}});
        QVERIFY(cell.host.service()->isConnected());
    }
};

QTEST_MAIN(tst_WeldBook)
#include "tst_weldbook.moc"
