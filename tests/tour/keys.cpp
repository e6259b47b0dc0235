#include <QLabel>
#include <QTest>
#include <QWindow>

#include "pando/frame.h"
#include "tour/pages.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

namespace {

void holdWireFeed(Tour &tour)
{
    auto &pendant = tour.pendant();
    QWindow *window = pendant.window()->windowHandle();
    tour.step("F1 is held, the wire feeds", [&] {
        openSubPage(pendant, "Process Setting");
        QTest::keyPress(window, Qt::Key_F1);
        return Tour::require(pendant.lastMessage(), "info: wire feeding success");
    });
    tour.picture("wire-feed-held");
    tour.step("and let go, the wire stands", [&] {
        QTest::keyRelease(window, Qt::Key_F1);
        return Tour::require(pendant.lastMessage(), "info: cancel wire feeding success");
    });
}

} // namespace

void handleKeys(Tour &tour)
{
    auto &pendant = tour.pendant();
    QWindow *window = pendant.window()->windowHandle();
    holdWireFeed(tour);
    tour.step("F4 switches the mode, with its picture in the status bar", [&] {
        const auto *mode =
            qobject_cast<QLabel *>(pando::frame().status->item("welmo.labelArcMode"));
        const QString before = mode->accessibleName();
        QTest::keyClick(window, Qt::Key_F4);
        if (!QTest::qWaitFor([&] { return mode->accessibleName() != before; }))
            throw testsupport::OutOfReach("the mode stays at " + before);
        return mode->accessibleName();
    });
    tour.step("F6 shows the monitor", [&] {
        QTest::keyClick(window, Qt::Key_F6);
        return Tour::require(pando::frame().rightSide->isVisible() ? "shown" : "hidden", "shown");
    });
    tour.picture("monitor");
    QTest::keyClick(window, Qt::Key_F6);
}

} // namespace tour
