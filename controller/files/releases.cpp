#include "controller/files/releases.h"

#include "controller/core/fields.h"
#include "controller/core/reason.h"
#include "controller/files/parameterfiles.h"
#include "schema/names.h"

using welmo::schema::Release;

namespace welmo::controller {

namespace {

const QString nameKey = QStringLiteral("name");
const QString contentKey = QStringLiteral("content");

bool canBeReleased(const QString &file)
{
    return schema::setOfFile(file) != nullptr;
}

Fields percentagesOf(const schema::Set &set)
{
    Fields fields;
    const QStringList trimmed = schema::trimmedKeys(set);
    for (const schema::Row *row : set.rows()) {
        if (trimmed.contains(QLatin1String(row->key)))
            fields.push_back(number(row->key, 0, 100));
    }
    return fields;
}

/// The file that a request would write or weld with; empty for any other request.
QString changedFile(const Request &request)
{
    if (request.kind == Request::Kind::Command && request.path == names::enableWeldParam)
        return childAt(request.payload, nameKey).toString();
    const schema::FileSet *set = schema::setOfFile(request.key);
    const bool writes = request.kind == Request::Kind::Set && set && request.path == set->node();
    return writes ? request.key : QString();
}

} // namespace

Releases::Releases(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    registry.addEntries(
        names::released,
        [this](const QString &file) {
            return file.isEmpty() ? m_context.loadAll(names::released)
                                  : m_context.load(names::released, file);
        },
        [this](const QString &file, const QVariant &payload) { return write(file, payload); },
        Registry::Entries::Apart);
    registry.addCommand(names::removeReleased, [this](const Request &request) {
        return removeListed(m_context, names::released, request.payload, canBeReleased);
    });
}

Reply Releases::write(const QString &file, const QVariant &payload)
{
    const schema::FileSet *set = schema::setOfFile(file);
    if (!set)
        return Reply::refused(UnknownKey, QStringLiteral("there is no file \"%1\"").arg(file));
    const Reply wanted = checked(payload, percentagesOf(*set), Missing::Allowed);
    if (!wanted.ok())
        return wanted;
    const Reply content = contentFor(*set, file, childAt(wanted.value, contentKey));
    if (!content.ok())
        return content;
    Release release = Release::from(wanted.value);
    release.content = content.value.toMap();
    release.user = m_context.audit().author().user;
    release.time = m_context.audit().author().time;
    Reply reply = m_context.save(names::released, file, release.toMap());
    if (reply.ok())
        m_context.notify(names::released, QVariantMap{{file, release.toMap()}});
    return reply;
}

// Without a content only the percentages are new; a first release takes the file as it is.
Reply Releases::contentFor(const schema::FileSet &set, const QString &file,
                           const QVariant &given) const
{
    if (given.isValid()) {
        const Reply content = checkedFile(set, given);
        const bool another = childAt(content.value, nameKey) != file;
        return content.ok() && another
            ? Reply::refused(BadPayload, QStringLiteral("the content is not that of ") + file)
            : content;
    }
    const Reply before = m_context.load(names::released, file);
    if (!before.ok() || before.value.isValid())
        return before.ok() ? Reply::with(childAt(before.value, contentKey)) : before;
    Reply present = m_context.load(set.node(), file);
    if (present.ok() && !present.value.isValid())
        present = Reply::refused(UnknownKey, QStringLiteral("there is no file \"%1\"").arg(file));
    return present;
}

Reply Releases::refusal(const Request &request) const
{
    const QString file = request.author.isBound ? changedFile(request) : QString();
    const schema::FileSet *set = schema::setOfFile(file);
    if (!set)
        return {};
    const Reply stored = m_context.load(names::released, file);
    const Reply present = m_context.load(set->node(), file);
    if (!stored.ok())
        return stored; // a damaged limit is no permission
    const Release release = Release::from(stored.value);
    if (!release.exists())
        return {};
    const auto breach =
        schema::breachOf(*set, release, present.ok() ? present.value : QVariant(), request.payload);
    if (!breach)
        return {};
    return refusedFor(
        NotAllowed, {breach->reason(), breach->arguments(file)},
        QStringLiteral("%1: %2 is beyond the released version's limits").arg(file, breach->key));
}

} // namespace welmo::controller
