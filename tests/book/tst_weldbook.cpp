#include <QTableView>
#include <QtTest>

#include "book/records/seambook.h"
#include "host/fakelink.h"
#include "pando/frame.h"
#include "support/files.h"
#include "tessa/host.h"

using namespace welmo::book;

namespace {

std::unique_ptr<SeamBook> openBook(const QString &folder)
{
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
    explicit Cell(const QString &folder)
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
        host.setLink(std::move(made));
        link->setUp(true);
        QCoreApplication::processEvents();
    }
    ~Cell() { host.stopModules(); }

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
        QDir(folder.path()).mkdir("weldbook");
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
            auto *list = cell.window.findChild<QTableView *>("tblWelds");
            QVERIFY(list);
            QTRY_COMPARE(list->model()->rowCount(), 1);
            cell.tell({{"welding_name", "arcdata3"}, {"current", 150.0}, {"voltage", 20.0}});
            cell.tell({{"current", 250.0}, {"voltage", 20.0}});
            QTRY_VERIFY(cell.logHas("arcdata3: current 250.0 A is outside its limits"));
            cell.link->setUp(false);
            QTRY_COMPARE(list->model()->rowCount(), 2);
        }
        const QVector<Seam> seams = openBook(folder.path())->list({});
        QCOMPARE(seams.size(), 2);
        QCOMPARE(seams[0].verdict, Verdict::Red);
        QCOMPARE(seams[0].ended, ending::linkLost);
        QCOMPARE(seams[0].reason, QString("current incomplete"));
        QVERIFY(seams[0].program.isEmpty() && seams[0].user.isEmpty() && !seams[0].gasTime);
        QVERIFY(openBook(folder.path())->course(seams[0].id).samples.size() > 5);
    }
    void aHostThatEndsInASeamLeavesItsRecord()
    {
        const QTemporaryDir folder;
        {
            Cell cell(folder.path());
            cell.tell({{"current", 150.0}, {"voltage", 20.0}});
        }
        const QVector<Seam> seams = openBook(folder.path())->list({});
        QCOMPARE(seams.size(), 1);
        QCOMPARE(seams[0].ended, ending::interrupted);
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
