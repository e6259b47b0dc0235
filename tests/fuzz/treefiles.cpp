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

// The tree that a host binds to the file in the folder; a problem that it tells goes to @p problem.
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

/// The input is read as the template of a tree, as a saved tree and as the pendant's preferences.
void fuzz(const QByteArray &input)
{
    if (welmo::controller::repeatsKey(input))
        return; // Qt leaks memory over it; only we write such files
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
                "a saved tree holds what was changed");
        require(QJsonObject::fromVariantMap(again).keys()
                    == QJsonObject::fromVariantMap(tree).keys(),
                "a saved tree keeps all else");
    }

    writeFile(folder.filePath("pendant.json"), input);
    welmo::pendant::Preferences preferences(folder.path());
    const bool good = preferences.error().isEmpty();
    require(preferences.save() == good, "preferences are kept unless they were unreadable");
    require(good || contentOf(folder.filePath("pendant.json")) == input,
            "unreadable preferences stay as they are");
    if (good)
        require(welmo::pendant::Preferences(folder.path()).language == preferences.language,
                "what was kept is read");
}
