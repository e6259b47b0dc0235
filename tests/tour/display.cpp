#include <QLabel>
#include <QToolButton>

#include "tour/pages.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

namespace {

void showPages(Tour &tour, const QString &prefix)
{
    auto &pendant = tour.pendant();
    tour.picture(prefix + "-home");
    pendant.open("arcweldpackage");
    for (auto *button : pendant.find("wgtNav")->findChildren<QToolButton *>()) {
        testsupport::finger::touch(button);
        tour.picture(prefix + "-package");
    }
    pendant.open("messages");
    tour.picture(prefix + "-messages");
    pendant.open("controller");
    tour.picture(prefix + "-controller");
}

} // namespace

void darkTheme(Tour &tour)
{
    tour.step("dark theme", [&] {
        tour.pendant().changeDisplay("cbxTheme", "dark");
        const QColor ground = tour.pendant().window()->grab().toImage().pixelColor(640, 740);
        Tour::require(ground.lightness() < 64 ? "dark" : "light", "dark");
        showPages(tour, "dark");
        return "the ground is " + ground.name();
    });
}

void chinese(Tour &tour)
{
    tour.step("Chinese", [&] {
        tour.pendant().changeDisplay("cbxLanguage", "zh_CN");
        QString title = tour.pendant().find<QLabel>("lblLinkState")->text();
        Tour::require(title, QString::fromUtf8("已连接"));
        showPages(tour, "chinese");
        return title;
    });
}

} // namespace tour
