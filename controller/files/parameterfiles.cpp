#include "controller/files/parameterfiles.h"

#include <algorithm>

#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString nameKey = QStringLiteral("name");

Reply noSuchFile(const QString &node, const QString &file)
{
    return Reply::refused(UnknownKey, QStringLiteral("%1 has no file \"%2\"").arg(node, file));
}

} // namespace

Reply checkedFile(const schema::FileSet &set, const QVariant &payload)
{
    Reply reply = checked(payload, fieldsOf(set), Missing::Allowed);
    if (reply.ok() && !set.hasFile(childAt(reply.value, nameKey).toString()))
        return Reply::refused(BadPayload, QStringLiteral("name is no file of ") + set.name);
    return reply;
}

Reply removeListed(ControllerContext &context, const QString &node, const QVariant &payload,
                   const std::function<bool(const QString &file)> &canBeThere)
{
    if (!payload.canConvert<QStringList>() || payload.userType() == QMetaType::QString)
        return Reply::refused(BadPayload, QStringLiteral("not a list of file names"));
    const QStringList files = payload.toStringList();
    const auto stranger = std::find_if_not(files.begin(), files.end(), canBeThere);
    if (stranger != files.end())
        return noSuchFile(node, *stranger);
    Reply reply = context.remove(node, files);
    QVariantMap gone;
    for (const QString &file : files)
        gone.insert(file, {});
    if (reply.ok())
        context.notify(node, gone);
    return reply;
}

ParameterFiles::ParameterFiles(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    for (const schema::FileSet *each : schema::fileSets()) {
        const schema::FileSet &set = *each;
        registry.addEntries(
            set.node(), [this, &set](const QString &file) { return read(set, file); },
            [this, &set](const QString &file, const QVariant &payload) {
                return write(set, file, payload);
            },
            Registry::Entries::Apart);
        if (set.isRemovable) {
            registry.addCommand(set.removeCommand(), [this, &set](const Request &request) {
                return removeListed(m_context, set.node(), request.payload,
                                    [&set](const QString &file) { return set.hasFile(file); });
            });
        }
    }
}

Reply ParameterFiles::read(const schema::FileSet &set, const QString &file) const
{
    if (file.isEmpty())
        return m_context.loadAll(set.node());
    return set.hasFile(file) ? m_context.load(set.node(), file) : noSuchFile(set.node(), file);
}

Reply ParameterFiles::write(const schema::FileSet &set, const QString &file,
                            const QVariant &payload)
{
    if (!set.hasFile(file))
        return noSuchFile(set.node(), file);
    Reply content = checkedFile(set, payload);
    if (!content.ok())
        return content;
    if (childAt(content.value, nameKey).toString() != file)
        return Reply::refused(BadPayload, QStringLiteral("name is not ") + file);
    Reply reply = m_context.save(set.node(), file, content.value);
    if (reply.ok())
        m_context.notify(set.node(), QVariantMap{{file, content.value}});
    return reply;
}

} // namespace welmo::controller
