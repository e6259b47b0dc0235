#include "page/weldmodeindicator.h"

#include <QPixmap>
#include <algorithm>
#include <array>

#include "data/report.h"
#include "schema/weldmode.h"

namespace welmo {

namespace {

namespace weldmode = schema::weldmode;

struct Mode
{
    const char *code;
    const char *logText;
    const char *labelText;
    const char *picture;
};

constexpr std::array<Mode, 3> modes{{
    {weldmode::testRun, QT_TRANSLATE_NOOP("welmo::WeldModeIndicator", "test run mode"),
     QT_TRANSLATE_NOOP("welmo::WeldModeIndicator", "test run"), "testRun.png"},
    {weldmode::simulation, QT_TRANSLATE_NOOP("welmo::WeldModeIndicator", "simulation mode"),
     QT_TRANSLATE_NOOP("welmo::WeldModeIndicator", "simulation"), "simu.png"},
    {weldmode::real, QT_TRANSLATE_NOOP("welmo::WeldModeIndicator", "real mode"),
     QT_TRANSLATE_NOOP("welmo::WeldModeIndicator", "real welding"), "realWelding.png"},
}};

constexpr int pictureHeight = 25;

const Mode *findMode(const QString &code)
{
    const auto mode = std::find_if(modes.begin(), modes.end(),
                                   [&](const Mode &m) { return code == QLatin1String(m.code); });
    return mode == modes.end() ? nullptr : &*mode;
}

} // namespace

void WeldModeIndicator::showPicture(const QString &code)
{
    const Mode *mode = findMode(code);
    if (!mode)
        return;
    const QPixmap picture(
        QStringLiteral(":/welmo/images/handle/%1").arg(QLatin1String(mode->picture)));
    setPixmap(picture.scaledToHeight(pictureHeight, Qt::SmoothTransformation));
    setAccessibleName(tr(mode->labelText));
    setToolTip(tr(mode->labelText));
}

void WeldModeIndicator::announce(const QString &code)
{
    const Mode *mode = findMode(code);
    if (!mode)
        return;
    setText(tr(mode->labelText));
    showPicture(code);
    // The message text has two blanks.
    report::info(nullptr, tr("Switch to  ") + tr(mode->logText));
}

} // namespace welmo
