#include "kelp/workspace.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

#include "kelp/jsonfile.h"
#include "treefile.h"

namespace kelp {

namespace {

Workspace *s_current = nullptr;

// Adds from the template what the saved tree lacks; the saved values stay.
void complete(ModuleObject *node, const QVariantMap &defaults)
{
    for (auto it = defaults.begin(); it != defaults.end(); ++it) {
        ModuleObject *child = node->c(it.key(), true);
        if (child->value().isValid())
            continue;
        if (it.value().userType() == QMetaType::QVariantMap)
            complete(child, it.value().toMap());
        else if (child->cmobjCount() == 0)
            child->set(nullptr, QString(), it.value(), false);
    }
}

} // namespace

Workspace::Workspace(const QString &dataFolder, const QString &language)
    : m_dataFolder(dataFolder)
    , m_translations(language)
{
    QDir().mkpath(dataFolder);
    s_current = this;
}

Workspace::~Workspace()
{
    saveTrees();
    if (s_current == this)
        s_current = nullptr;
}

Workspace *Workspace::current()
{
    return s_current;
}

ModuleObject *Workspace::bindTree(const QString &key, const QString &templatePath, bool persistent)
{
    ModuleObject *tree = m_root.make(key);
    if (m_bound.contains(key))
        return tree;
    m_bound.append(key);
    QString error;
    std::unique_ptr<TreeFile> file;
    if (persistent) {
        file = std::make_unique<TreeFile>(
            QDir(m_dataFolder).filePath(key + QStringLiteral(".json")), tree);
        if (!file->load(&error))
            report(error);
    }
    error.clear();
    const QJsonDocument defaults = readJsonFile(templatePath, &error);
    if (!error.isEmpty())
        report(error);
    complete(tree, defaults.object().toVariantMap());
    if (file) {
        connect(file.get(), &TreeFile::failed, this, &Workspace::problem);
        file->follow();
        m_files.push_back(std::move(file));
    }
    return tree;
}

void Workspace::saveTrees()
{
    for (const auto &file : m_files)
        file->flush();
}

} // namespace kelp

kelp::ModuleObject *m(const QString &path, kelp::ModuleObject *root)
{
    if (!root && kelp::Workspace::current())
        root = kelp::Workspace::current()->root();
    return root ? root->r(path) : kelp::EmptyModuleObject::instance();
}
