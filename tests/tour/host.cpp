
#include "pando/frame.h"
#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

void firstStart(Tour &tour)
{
    tour.step("first start", "home", [&] {
        Tour::require(pando::frame().center->currentKey(), "pendant.home");
        return tour.requireText("lblLinkState", "Connected");
    });
}

void linkDown(Tour &tour)
{
    tour.step("link down, Save is refused", "link-down", [&] {
        tour.openSubPage("Process Setting");
        tour.click("btnLink");
        tour.waitDisconnected();
        tour.requireText("lblLinkState", "Link off");
        tour.click("btnArcOnSave");
        return tour.requireMessage("error: tessa is not connected");
    });
    tour.step("link up again", [&] {
        tour.click("btnLink");
        tour.waitConnected();
        return tour.requireText("lblLinkState", "Connected");
    });
}

void hostPages(Tour &tour)
{
    tour.step("Messages, the errors alone", "messages", [&] {
        tour.open("messages");
        tour.click("btnLevel_error");
        const QString newest = tour.cell("tblMessages", 0, 2);
        tour.click("btnLevel_");
        return Tour::require(newest, "tessa is not connected");
    });
    tour.step("Controller, the wire sticks and is mended", "controller", [&] {
        tour.open("controller");
        tour.click("btnFault_WireStuck");
        const bool stuck = tour.faults()->isOn(welmo::controller::Faults::Fault::WireStuck);
        tour.click("btnClearFaults");
        return Tour::require(stuck ? "stuck" : "free", "stuck");
    });
}

namespace {

// Pictures of the program, its files, two forms, a run beside the monitor, and a lost link.
void showProgram(Tour &tour, const QString &prefix)
{
    using Fault = welmo::controller::Faults::Fault;
    testsupport::ProgramTouch program(tour);
    program.open("fillet.tl");
    tour.takePicture(prefix + "-program");
    tour.click("btnProgramLook");
    tour.takePicture(prefix + "-files");
    tour.click("btnRunCheckBack");
    for (const char *word : {"WMoveL", "ArcOn"}) {
        program.insert(word);
        tour.takePicture(prefix + "-insert-" + QString(word).toLower());
        tour.click("btnFormCancel");
    }
    pando::frame().rightSide->switchTo("welmo.page");
    pando::frame().rightSide->show();
    tour.click("btnProgramRun");
    const auto isRunning = [&tour] { return tour.find("btnProgramPause")->isEnabled(); };
    Tour::await("running", isRunning);
    tour.takePicture(prefix + "-run");
    tour.faults()->set(Fault::LinkDown, true);
    Tour::await("told", [&tour] { return !tour.host()->service()->isConnected(); });
    tour.takePicture(prefix + "-link-lost");
    tour.faults()->clear();
    tour.waitConnected();
    Tour::await("known", [&tour] { return tour.find("btnProgramStop")->isEnabled(); });
    tour.click("btnProgramStop");
    tour.click("btnSideClose");
}

} // namespace

// Pictures of every page in the dark theme, then in Chinese.
void display(Tour &tour)
{
    const auto showPages = [&tour](const QString &prefix) {
        tour.takePicture(prefix + "-home");
        tour.open("arcweldpackage");
        for (auto *button : tour.find("wgtNav")->findChildren<QToolButton *>()) {
            testsupport::finger::touch(button);
            tour.takePicture(prefix + "-package");
        }
        tour.openSubPage(tour.find("wgtNav")->findChildren<QToolButton *>().at(2)->text());
        testsupport::finger::touch(tour.find("sbxArconVoltage")->findChild<QLineEdit *>());
        tour.takePicture(prefix + "-keypad");
        showProgram(tour, prefix);
        for (const char *page : {"jog", "messages", "controller", "program"}) {
            tour.open(page);
            tour.takePicture(prefix + '-' + page);
        }
        tour.click("btnProgramPath");
        tour.takePicture(prefix + "-path");
        tour.open("weldbook");
        for (const char *tab : {"btnWelds", "btnTrend", "btnFiles", "btnBackup"}) {
            tour.click(tab);
            tour.takePicture(prefix + "-book");
        }
        tour.click("btnFiles");
        tour.touchRow("tblFiles", 0);
        tour.click("btnReleaseFile");
        tour.takePicture(prefix + "-book-release");
    };
    tour.step("dark theme", [&] {
        tour.changeDisplay("cbxTheme", "dark");
        const QColor ground = tour.window()->grab().toImage().pixelColor(640, 740);
        showPages("dark");
        return Tour::require(ground.lightness() < 64 ? "dark" : ground.name(), "dark");
    });
    tour.step("Chinese", [&] {
        tour.changeDisplay("cbxLanguage", "zh_CN");
        showPages("chinese");
        return tour.requireText("lblLinkState", QString::fromUtf8("已连接"));
    });
}

} // namespace tour
