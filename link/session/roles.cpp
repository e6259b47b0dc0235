#include "link/session/roles.h"

#include <QFile>
#include <algorithm>

#include "controller/core/fields.h"
#include "link/protocol/protocol.h"
#include "schema/names.h"

using welmo::controller::Request;
using Kind = welmo::controller::Request::Kind;

namespace welmo::links {

namespace {

struct Row
{
    Kind kind;
    QString path; ///< a path that ends with a dot stands for all that begin with it
    Need need;
};

const QVector<Row> &table()
{
    static const QVector<Row> rows{
        {Kind::Command, names::robotPosition, {Role::Viewer}},
        {Kind::Command, names::pauseProgram, {Role::Viewer}},
        {Kind::Command, names::stopProgram, {Role::Viewer}},
        {Kind::Command, names::stopMove, {Role::Viewer}},
        {Kind::Command, names::stopJog, {Role::Viewer}},

        {Kind::Command, names::takeControl, {Role::Operator}},
        {Kind::Command, names::giveControl, {Role::Operator}},
        {Kind::Command, names::acknowledgeAlarms, {Role::Operator}},
        {Kind::Command, names::switchCell, {Role::Operator, true}},
        {Kind::Command, names::wireFeed, {Role::Operator, true}},
        {Kind::Command, names::gasFlow, {Role::Operator, true}},
        {Kind::Command, names::setWeldMode, {Role::Operator, true}},
        {Kind::Command, names::enableWeldParam, {Role::Operator, true}},
        {Kind::Command, names::runProgram, {Role::Operator, true}},
        {Kind::Command, names::stepProgram, {Role::Operator, true}},
        {Kind::Command, names::reweldProgram, {Role::Operator, true}},
        {Kind::Command, names::moveToPoint, {Role::Operator, true}},
        {Kind::Command, names::startJog, {Role::Operator, true}},
        {Kind::Set, names::runningParam, {Role::Operator, true}},
        {Kind::Set, names::toolPage, {Role::Operator, true}},
        {Kind::Set, names::welderStateRate, {Role::Operator}},
        {Kind::Set, names::arcWeldPrefix + QStringLiteral("arcon_param"), {Role::Operator}},
        {Kind::Set, names::arcWeldPrefix + QStringLiteral("weld_param"), {Role::Operator}},
        {Kind::Set, names::arcWeldPrefix + QStringLiteral("arcoff_param"), {Role::Operator}},
        {Kind::Set, names::arcWeldPrefix + QStringLiteral("weave_param"), {Role::Operator}},
        {Kind::Set, names::arcWeldPrefix + QStringLiteral("seg_param"), {Role::Operator}},

        {Kind::Command, names::loadProgram, {Role::Programmer, true}},
        {Kind::Command, names::removePrefix, {Role::Programmer}},
        {Kind::Set, names::released, {Role::Programmer}},
        {Kind::Set, names::project, {Role::Programmer}},

        {Kind::Command, names::setAnticollision, {Role::Administrator, true}},
        {Kind::Command, names::setClampingTorchMode, {Role::Administrator, true}},
        {Kind::Command, names::setWelder, {Role::Administrator, true}},
        {Kind::Set, names::anticollisionParam, {Role::Administrator, true}},
        {Kind::Set, names::clampingTorchParam, {Role::Administrator, true}},
    };
    return rows;
}

// A key's release ends what the same command began.
bool isRelease(const Request &request)
{
    const bool back = request.key == names::wireFeelBackPayload;
    const QVariant on = controller::childAt(
        request.payload, back ? QStringLiteral("reverse") : QStringLiteral("feed"));
    return request.kind == Kind::Command && request.path == names::wireFeed
        && on.userType() == QMetaType::Bool && !on.toBool();
}

bool isAbout(const Row &row, const Request &request)
{
    const bool whole = !row.path.endsWith(QLatin1Char('.'));
    return row.kind == request.kind
        && (whole ? request.path == row.path : request.path.startsWith(row.path));
}

const QStringList &words()
{
    static const QStringList list{QStringLiteral("viewer"), QStringLiteral("operator"),
                                  QStringLiteral("programmer"), QStringLiteral("administrator")};
    return list;
}

Role roleNamed(const QString &word)
{
    return static_cast<Role>(words().indexOf(word) + 1);
}

} // namespace

QString roleName(Role role)
{
    return words().value(static_cast<int>(role) - 1);
}

Need needOf(const Request &request)
{
    if (request.kind == Kind::Get || request.kind == Kind::Watch)
        return {request.path == names::audit ? Role::Administrator : Role::Viewer};
    if (isRelease(request))
        return {Role::Viewer};
    const auto found = std::find_if(table().begin(), table().end(),
                                    [&](const Row &row) { return isAbout(row, request); });
    return found == table().end() ? Need{} : found->need;
}

Roles::Roles(QMap<QString, Role> users)
    : m_users(std::move(users))
{ }

Roles Roles::read(const QString &file, QString *problem)
{
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly)) {
        *problem = QStringLiteral("%1: %2").arg(file, opened.errorString());
        return {};
    }
    Roles roles;
    for (int number = 1; !opened.atEnd(); ++number) {
        const QString line =
            QString::fromUtf8(opened.readLine()).section(QLatin1Char('#'), 0, 0).simplified();
        const Role role = roleNamed(line.section(QLatin1Char(' '), 1));
        if (line.isEmpty())
            continue;
        if (role == Role::Nobody || !protocol::isName(line.section(QLatin1Char(' '), 0, 0))) {
            *problem =
                QStringLiteral("%1:%2: no line such as 'anna operator'").arg(file).arg(number);
            return {};
        }
        roles.m_users.insert(line.section(QLatin1Char(' '), 0, 0), role);
    }
    return roles;
}

bool Roles::allows(const QString &user, const Request &request) const
{
    const Need need = needOf(request);
    return need.role != Role::Nobody && of(user) >= need.role;
}

} // namespace welmo::links
