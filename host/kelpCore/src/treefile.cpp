#include "treefile.h"

#include <QFile>
#include <QJsonObject>

#include "kelp/jsonfile.h"

namespace kelp {

namespace {
constexpr int saveDelayMs = 300; // collects the writes of one form into one write of the file
}

TreeFile::TreeFile(const QString &path, ModuleObject *tree)
    : m_path(path)
    , m_tree(tree)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(saveDelayMs);
    connect(&m_delay, &QTimer::timeout, this, &TreeFile::flush);
}

bool TreeFile::load(QString *error)
{
    if (!QFile::exists(m_path))
        return true;
    const QJsonDocument document = readJsonFile(m_path, error);
    m_writable = document.isObject();
    if (!m_writable && error->isEmpty())
        *error = tr("%1: is not a JSON object").arg(m_path);
    if (m_writable)
        m_tree->importFromVariant(this, document.object().toVariantMap(), false);
    return m_writable;
}

void TreeFile::follow()
{
    if (!m_writable)
        return;
    m_tree->observeSubtree(true);
    connect(m_tree, &ModuleObject::touched, this, [this] {
        m_dirty = true;
        // Not restarted, so that a tree that changes all the time is saved as well.
        if (!m_delay.isActive())
            m_delay.start();
    });
}

void TreeFile::flush()
{
    if (!m_dirty)
        return;
    QString error;
    const auto object = QJsonObject::fromVariantMap(m_tree->toVariant().toMap());
    m_dirty = !writeJsonFile(m_path, QJsonDocument(object), &error);
    if (m_dirty)
        emit failed(error);
}

} // namespace kelp
