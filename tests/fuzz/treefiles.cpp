#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "controller/json.h"
#include "fuzz.h"
#include "kelp/jsonfile.h"
#include "kelp/workspace.h"
#include "pendant/preferences.h"

namespace {

const QString templateFile = ":/welmo/template/welmo.json";

struct Folder
{
    QString file(const char *name) const { return QDir(folder.path()).filePath(name); }
    void write(const char *name, const QByteArray &bytes) const
    {
        QFile file(this->file(name));
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                "it is written");
    }
    QByteArray read(const char *name) const
    {
        QFile file(this->file(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QTemporaryDir folder;
};

// What is kept in a folder, as a host binds it; a problem is told or not.
QVariant bound(const Folder &folder, const QString &defaults, bool persistent, QString *problem,
               bool touch = false)
{
    kelp::Workspace workspace(folder.folder.path(), "en");
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
    if (controller::repeatsKey(input))
        return; // Qt loses memory over it; these files come from nobody else
    static const Folder folder;
    QString problem;
    folder.write("template.json", input);
    const QVariant fresh = bound(folder, folder.file("template.json"), false, &problem);
    require(problem.isEmpty() || !fresh.isValid(), "a bad template gives nothing", problem);

    folder.write("welmo.json", input);
    const bool isTree = kelp::readJsonFile(folder.file("welmo.json"), &problem).isObject();
    problem.clear();
    const QVariantMap tree = bound(folder, templateFile, true, &problem, true).toMap();
    require(isTree == problem.isEmpty(), "what is no tree is reported", problem);
    if (!isTree) {
        require(folder.read("welmo.json") == input, "a file that is no tree stays as it is",
                problem);
    } else {
        const QVariantMap again = bound(folder, templateFile, true, &problem).toMap();
        require(problem.isEmpty(), "what was saved can be read", problem);
        require(again.value("device").toMap().value("enable") == true,
                "and holds what was changed");
        require(QJsonObject::fromVariantMap(again).keys()
                    == QJsonObject::fromVariantMap(tree).keys(),
                "and all else");
    }

    folder.write("pendant.json", input);
    pendant::Preferences preferences(folder.folder.path());
    const bool good = preferences.error().isEmpty();
    require(preferences.save() == good, "preferences are kept unless they were unreadable");
    require(good || folder.read("pendant.json") == input, "which leaves them as they are");
    if (good)
        require(pendant::Preferences(folder.folder.path()).language == preferences.language,
                "what was kept is read");
}
