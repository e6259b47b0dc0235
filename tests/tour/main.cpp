// Does the main job unattended, with the real window, library and touches; fails if a step fails.

#include <QDir>
#include <cstdio>

#include "tour/tour.h"

namespace {

constexpr void (*walk[])(tour::Tour &) = {
    tour::firstStart,
    tour::processSetting,
    tour::restart,
    tour::linkDown,
    tour::hostPages,
    tour::processConfiguration,
    tour::handleKeys,
    tour::programEditor,
    tour::weld,
    tour::alarm,
    tour::reweld,
    tour::path,
    tour::jog,
    tour::weldBook,
    tour::weldBookFiles,
    tour::weldBookRelease,
    tour::weldBookBackup,
    tour::display,
    tour::example,
};

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        std::fputs("usage: welmo-tour DIR\n", stderr);
        return 2;
    }
    tour::Tour tour(arguments.at(1));
    for (const auto &steps : walk)
        steps(tour);
    std::printf("%s\n", tour.failures() == 0 ? "the tour is complete" : "the tour failed");
    return tour.failures() == 0 ? 0 : 1;
}
