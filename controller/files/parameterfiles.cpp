#include "controller/files/parameterfiles.h"

#include <algorithm>

#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString nameKey = QStringLiteral("name");

Reply noSuchFile(const schema::FileSet &set, const QString &file)
{
    return Reply::refused(UnknownKey, QStringLiteral("%1 has no file \"%2\"").arg(set.name, file));
}

} // namespace

Reply checkedFile(const schema::FileSet &set, const QVariant &payload)
{
    Reply reply = checked(payload, fieldsOf(set), Missing::Allowed);
    if (reply.ok() && !set.hasFile(childAt(reply.value, nameKey).toString()))
        return Reply::refused(BadPayload, QStringLiteral("name is no file of ") + set.name);
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
                return remove(set, request.payload);
            });
        }
    }
}

Reply ParameterFiles::read(const schema::FileSet &set, const QString &file) const
{
    if (file.isEmpty())
        return m_context.loadAll(set.node());
    return set.hasFile(file) ? m_context.load(set.node(), file) : noSuchFile(set, file);
}

Reply ParameterFiles::write(const schema::FileSet &set, const QString &file,
                            const QVariant &payload)
{
    if (!set.hasFile(file))
        return noSuchFile(set, file);
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

Reply ParameterFiles::remove(const schema::FileSet &set, const QVariant &payload)
{
    if (!payload.canConvert<QStringList>() || payload.userType() == QMetaType::QString)
        return Reply::refused(BadPayload, QStringLiteral("not a list of file names"));
    const QStringList files = payload.toStringList();
    const auto stranger = std::find_if(files.begin(), files.end(),
                                       [&set](const QString &file) { return !set.hasFile(file); });
    if (stranger != files.end())
        return noSuchFile(set, *stranger);
    Reply reply = m_context.remove(set.node(), files);
    QVariantMap gone;
    for (const QString &file : files)
        gone.insert(file, {});
    if (reply.ok())
        m_context.notify(set.node(), gone);
    return reply;
}

} // namespace welmo::controller
