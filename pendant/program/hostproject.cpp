#include "pendant/program/hostproject.h"

#include "schema/filesets.h"
#include "schema/names.h"
#include "tessa/host.h"
#include "tessa/tlmanager.h"

namespace welmo::pendant {

namespace {

using Names = QSet<QString>;

// Adds the names of a list's entries; only variables have a type to select by.
void addNames(Names &names, const char *list, const char *type = nullptr)
{
    const auto *node = m(welmo::names::project + QLatin1Char('.') + QLatin1String(list));
    for (const kelp::ModuleObject *item : node->cmobjs()) {
        if (!type || item->r(QStringLiteral("type"))->getString() == QLatin1String(type))
            names.insert(item->r(QStringLiteral("name"))->getString());
    }
}

void addPoints(QHash<QString, tl::ProjectNames::Taught> &points, const char *list)
{
    const auto *node = m(welmo::names::project + QLatin1Char('.') + QLatin1String(list));
    for (const kelp::ModuleObject *item : node->cmobjs()) {
        const auto text = [item](const char *key) {
            return item->r(QString::fromLatin1(key))->getString();
        };
        points.insert(text("name"), {text("tool"), text("wobj")});
    }
}

void addFiles(Names &names)
{
    for (const schema::FileSet *set : schema::fileSets()) {
        for (const QString &file : xservice()->get(nullptr, set->node())->cmobjNames())
            names.insert(file);
    }
}

// Adds the words that are not the package's, which the table of instructions has.
void addWords(Names &names)
{
    for (const QString &word : tessa::TlManager::getTlManager()->instructionNames)
        names.insert(word);
}

} // namespace

std::optional<tl::ProjectNames> hostProject()
{
    if (!xservice()->isConnected())
        return {};
    tl::ProjectNames names;
    addPoints(names.points, "point.system_list");
    addPoints(names.points, "point._list");
    for (const char *list : {"var.system_list", "var._list"}) {
        addNames(names.speeds, list, "speed");
        addNames(names.zones, list, "zone");
    }
    for (const char *list : {"tool.system_list", "tool._list"})
        addNames(names.tools, list);
    for (const char *list : {"wobj.system_list", "wobj._list"})
        addNames(names.wobjs, list);
    addFiles(names.files);
    addWords(names.words);
    return names;
}

void followHostProject(QObject *context, const std::function<void()> &changed)
{
    auto *root = tessa::Host::current()->workspace()->root();
    kelp::ModuleObject *project = root->make(welmo::names::project);
    project->observeSubtree(true);
    QObject::connect(project, &kelp::ModuleObject::touched, context, changed);
}

} // namespace welmo::pendant
