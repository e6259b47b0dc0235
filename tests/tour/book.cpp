#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

namespace {

int rowOf(Tour &tour, const QString &file)
{
    const auto *files = tour.find<QTableView>("tblFiles")->model();
    const auto found = files->match(files->index(0, 0), Qt::DisplayRole, file, 1, Qt::MatchExactly);
    return found.isEmpty() ? -1 : found.first().row();
}

// The file has what was chosen in the first step of the book.
QString requireOption(Tour &tour, const QString &file)
{
    return tour.requireStored("weld_param", file, "arc_break_param.arc_break_option",
                              "stop_and_alarm");
}

} // namespace

void weldBook(Tour &tour)
{
    tour.step("an arc that breaks is to stop the weld", [&] {
        tour.openSubPage("Process Setting");
        tour.choose("cbx_weldingParamFileNumber", "arcdata1");
        if (!tour.find("cbxArcBreakOption")->isVisible())
            tour.click("btn_weldFold");
        tour.chooseCode("cbxArcBreakOption", "stop_and_alarm");
        tour.click("btnWeldingSave");
        return tour.requireMessage("info: save parameter succeed");
    });
    tour.step("a weld runs, and the book shows it", "book-trend", [&] {
        testsupport::ProgramTouch(tour).open("vgroove.tl");
        tour.click("btnProgramRun");
        tour.open("weldbook");
        tour.click("btnTrend");
        const auto *state = tour.host()->service()->watchNode("arc_weld.welder_state");
        return Tour::await("welding", [&] {
            return state->r("phase")->getString() == "welding"
                && state->r("welding_distance")->getDouble() > 10;
        });
    });
    tour.step("the arc breaks, and the weld is in the book", "book-broken", [&] {
        tour.faults()->set(welmo::controller::Faults::Fault::ArcBreaks, true);
        const auto *program = tour.host()->service()->watchNode("tl_program.state");
        Tour::await("stopped", [&] { return program->r("state")->getString() == "error"; });
        tour.click("btnWelds");
        Tour::await("written", [&] { return tour.cell("tblWelds", 0, 0) == "✗"; });
        tour.faults()->clear();
        tour.touchRow("tblWelds", 0);
        return Tour::require(tour.cell("tblWelds", 0, 2), "vgroove.tl:6");
    });
    tour.step("after a restart its card is there, and red", "book-card", [&] {
        tour.restart();
        tour.open("weldbook");
        Tour::await("listed", [&] { return tour.cell("tblWelds", 0, 0) == "✗"; });
        tour.touchRow("tblWelds", 0);
        tour.awaitText("lblReason", "arc lost at ");
        tour.requireText("lblVerdict", "Bad");
        return Tour::require(tour.cell("tblWelds", 0, 2), "vgroove.tl:6");
    });
}

void weldBookFiles(Tour &tour)
{
    tour.step("the book shows where a file is used", "book-files", [&] {
        tour.open("weldbook");
        tour.click("btnFiles");
        Tour::await("programs", [&] {
            return tour.cell("tblFiles", rowOf(tour, "arcdata2"), 5) == "tour.tl 1";
        });
        tour.touchRow("tblFiles", rowOf(tour, "arcdata1"));
        Tour::await("versions", [&] { return tour.cell("tblVersions", 0, 0).toInt() > 1; });
        return Tour::await(
            "welds", [&] { return tour.cell("tblFiles", rowOf(tour, "arcdata1"), 6).toInt() > 0; });
    });
    tour.step("what changed is there, old and new", "book-compare", [&] {
        Tour::await("who", [&] { return tour.cell("tblVersions", 0, 2) == "administrator"; });
        return tour.cell("tblDifferences", 0, 0);
    });
    tour.step("a file is copied, and the copy taken back", [&] {
        tour.choose("cbxCopyTarget", "arcdata7");
        tour.click("btnCopyFile");
        tour.requireMessage("info: arcdata1 copied to arcdata7");
        requireOption(tour, "arcdata7");
        tour.click("btnUndoFiles");
        return tour.requireMessage("info: taken back: arcdata1 copied to arcdata7");
    });
    tour.step("an earlier version is put back, and the later one again", [&] {
        tour.touchRow("tblVersions", tour.find<QTableView>("tblVersions")->model()->rowCount() - 1);
        tour.click("btnBackToVersion");
        tour.requireMessage("info: arcdata1 back to version 1");
        tour.click("btnUndoFiles");
        return requireOption(tour, "arcdata1");
    });
    tour.step("a file that a program names is not removed", "book-refused", [&] {
        tour.touchRow("tblFiles", rowOf(tour, "arcdata2"));
        tour.click("btnRemoveFile");
        return Tour::await("refused", [&] {
            return tour.lastMessage() == "error: arcdata2 stays, programs use it: tour.tl 1";
        });
    });
}

void weldBookRelease(Tour &tour)
{
    const auto chooseLevel = [&tour](const char *level) {
        tour.open("controller");
        tour.choose("cbxLevel", level);
    };
    tour.step("a file is released, and an operator may trim it a little", "book-release", [&] {
        tour.touchRow("tblFiles", rowOf(tour, "arcdata1"));
        tour.click("btnReleaseFile");
        return tour.requireText("lblReleaseTitle", "What an operator may change in arcdata1");
    });
    tour.step("who released it and the limits are with the file", "book-released", [&] {
        tour.click("btnReleaseSave");
        tour.requireMessage("info: arcdata1 is released");
        return tour.awaitText("lblRelease", "by administrator: Current ± 5 %");
    });
    tour.step("an operator who goes further is told how far he may go", "book-refused-trim", [&] {
        chooseLevel("Operator");
        tour.openSubPage("Process Setting");
        tour.choose("cbx_weldingParamFileNumber", "arcdata1");
        tour.type("sbxWeldCurrent", "300");
        tour.click("btnWeldingSave");
        return Tour::await("refused", [&] {
            return tour.lastMessage()
                == "error: arcdata1: an operator may set a current of 199.5 to 220.5, not 300";
        });
    });
    tour.step("what is allowed is saved", [&] {
        tour.type("sbxWeldCurrent", "215");
        tour.click("btnWeldingSave");
        return tour.requireMessage("info: save parameter succeed");
    });
    tour.step("an operator cannot release", [&] {
        tour.open("weldbook");
        tour.click("btnReleaseFile");
        tour.click("btnWithdraw");
        tour.requireMessage("error: arcdata1: the user may not do that (13)");
        tour.click("btnReleaseCancel");
        chooseLevel("Administrator");
        tour.open("weldbook");
        tour.click("btnReleaseFile");
        tour.click("btnWithdraw");
        return tour.requireMessage("info: arcdata1 is no longer released");
    });
}

void weldBookBackup(Tour &tour)
{
    QString folder;
    const testsupport::Setup first = tour.setup();
    const QTemporaryDir other;
    tour.step("everything goes into a backup", [&] {
        tour.click("btnBackup");
        folder = tour.find<QLineEdit>("ledBackupFolder")->text();
        tour.click("btnMakeBackup");
        return Tour::await("written",
                           [&] { return tour.lastMessage().contains("backup written"); });
    });
    tour.step(
        "on a second data folder it is another cell's, until the user agrees", "book-restore", [&] {
            testsupport::Setup second = first;
            second.dataFolder = other.path();
            tour.restart(second);
            tour.open("weldbook");
            tour.click("btnBackup");
            tour.find<QLineEdit>("ledBackupFolder")->setText(folder);
            emit tour.find<QLineEdit>("ledBackupFolder")->editingFinished();
            tour.click("btnReadBackup");
            Tour::await("refused", [&] { return tour.lastMessage().contains("of another cell"); });
            tour.click("chbOtherCell");
            tour.click("btnReadBackup");
            const auto *items = tour.find<QTableView>("tblRestore")->model();
            return Tour::await("differences", [&] { return items->rowCount() > 5; });
        });
    tour.step("and all files are there", [&] {
        tour.click("btnRestore");
        Tour::await("restored", [&] { return tour.lastMessage().contains(" restored"); });
        tour.click("btnReadBackup");
        const auto *items = tour.find<QTableView>("tblRestore")->model();
        Tour::await("no difference", [&] { return items->rowCount() == 0; });
        return requireOption(tour, "arcdata1");
    });
    tour.restart(first);
}

} // namespace tour
