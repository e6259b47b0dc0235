// What the host finds when the library is loaded, before any module exists. Loading the library
// again writes the same keys again.

#include <kelp/registry.h>

#include "module/welmo.h"

namespace {

constexpr int pluginNumber = 11;

struct ClassVersion
{
    const char *key;
    int number;
};

// These numbers belong to saved data: change one only together with what is saved.
constexpr ClassVersion classVersions[] = {
    {"welmo.arc_weld_page", 7},         {"welmo.seg_parameter_page", 1},
    {"welmo.monitor_page", 1},          {"welmo.device_setting_page", 1},
    {"welmo.process_settings_page", 1}, {"welmo.weave_function_page", 1},
    {"welmo.welding_options_page", 2},  {"welmo.moveparamwidget", 2},
};

bool registerAll()
{
    bfactory()->regist(QStringLiteral("welmo"),
                       [](QObject *parent) -> pando::BModule * { return new Welmo(parent); });
    kelp::pluginManager()->regist(QStringLiteral("welmo"), [] { return pluginNumber; });
    for (const ClassVersion &entry : classVersions) {
        const int number = entry.number;
        kelp::versionManager().insert(QString::fromLatin1(entry.key), [number] { return number; });
    }
    return true;
}

const bool registered = registerAll();

} // namespace
