#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "controller/core/json.h"
#include "fuzz.h"
#include "kelp/jsonfile.h"
#include "kelp/workspace.h"
#include "pendant/app/preferences.h"
#include "support/files.h"

using namespace testsupport;

namespace {

const QString templateFile = ":/welmo/template/welmo.json";

// What is kept in a folder, as a host binds it; a problem is told or not.
QVariant bound(const QDir &folder, const QString &defaults, bool persistent, QString *problem,
               bool touch = false)
{
    kelp::Workspace workspace(folder.path(), "en");
    QObject::connect(&workspace, &kelp::Workspace::problem,
                     [problem](const QString &line) { *problem = line; });
    kelp::ModuleObject *tree = workspace.bindTree("welmo", defaults, persistent);
    if (touch)
        tree->set(nullptr, "device.enable", true);
    return tree->toVariant();
}

} // namespace

/// A file as the template of a tree, as a saved tree, and as the pendant's preferences.
void fuzz(const QByteArray &input)
{
    if (welmo::controller::repeatsKey(input))
        return; // Qt loses memory over it; these files come from nobody else
    static const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    QString problem;
    writeFile(folder.filePath("template.json"), input);
    const QVariant fresh = bound(folder, folder.filePath("template.json"), false, &problem);
    require(problem.isEmpty() || !fresh.isValid(), "a bad template gives nothing", problem);

    writeFile(folder.filePath("welmo.json"), input);
    const bool isTree = kelp::readJsonFile(folder.filePath("welmo.json"), &problem).isObject();
    problem.clear();
    const QVariantMap tree = bound(folder, templateFile, true, &problem, true).toMap();
    require(isTree == problem.isEmpty(), "what is no tree is reported", problem);
    if (!isTree) {
        require(contentOf(folder.filePath("welmo.json")) == input,
                "a file that is no tree stays as it is", problem);
    } else {
        const QVariantMap again = bound(folder, templateFile, true, &problem).toMap();
        require(problem.isEmpty(), "what was saved can be read", problem);
        require(again.value("device").toMap().value("enable") == true,
                "and holds what was changed");
        require(QJsonObject::fromVariantMap(again).keys()
                    == QJsonObject::fromVariantMap(tree).keys(),
                "and all else");
    }

    writeFile(folder.filePath("pendant.json"), input);
    welmo::pendant::Preferences preferences(folder.path());
    const bool good = preferences.error().isEmpty();
    require(preferences.save() == good, "preferences are kept unless they were unreadable");
    require(good || contentOf(folder.filePath("pendant.json")) == input,
            "which leaves them as they are");
    if (good)
        require(welmo::pendant::Preferences(folder.path()).language == preferences.language,
                "what was kept is read");
}
