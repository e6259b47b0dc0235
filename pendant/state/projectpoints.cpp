#include "pendant/state/projectpoints.h"

#include <QJsonObject>
#include <QRegularExpression>
#include <QUuid>

#include "pendant/state/reasontext.h"
#include "schema/names.h"
#include "schema/reasons.h"
#include "tessa/host.h"

namespace welmo::pendant {

namespace {

const QString pointList = QStringLiteral("point._list");
const QString nameKey = QStringLiteral("name");
constexpr int positionTimeoutMs = 1600;

kelp::ModuleObject *tree()
{
    return m(names::project + QLatin1Char('.') + pointList);
}

QString nameOf(const QVariant &point)
{
    return point.toMap().value(nameKey).toString();
}

int rowOf(const QVariantList &points, const QString &name)
{
    for (int row = 0; row < points.size(); ++row) {
        if (nameOf(points.at(row)) == name)
            return row;
    }
    return -1;
}

QVariantMap named(QVariantMap point, const QString &name)
{
    point.insert(nameKey, name);
    point.insert(QStringLiteral("id"), name);
    return point;
}

QString freeName(const QVariantList &points, const QString &like)
{
    QString letters = like;
    while (!letters.isEmpty() && letters.back().isDigit())
        letters.chop(1);
    int number = 1;
    while (rowOf(points, letters + QString::number(number)) >= 0)
        ++number;
    return letters + QString::number(number);
}

QVariantList listOf(const kelp::ModuleObject *node)
{
    QVariantList points;
    for (const kelp::ModuleObject *point : node->cmobjs())
        points.append(point->toVariant());
    return points;
}

} // namespace

ProjectPoints::ProjectPoints(tessa::Host *host, QObject *parent)
    : QObject(parent)
    , m_host(host)
{
    setObjectName(QStringLiteral("Points"));
    kelp::ModuleObject *project = host->workspace()->root()->make(names::project);
    project->observeSubtree(true);
    connect(project, &kelp::ModuleObject::touched, this, &ProjectPoints::changed);
}

QStringList ProjectPoints::names() const
{
    QStringList result;
    for (const kelp::ModuleObject *point : tree()->cmobjs())
        result.append(point->r(nameKey)->getString());
    return result;
}

QString ProjectPoints::detail(const QString &name) const
{
    const QVariantList points = listOf(tree());
    const kelp::ModuleObject *point = tree()->cmobj(rowOf(points, name));
    const auto number = [point](const char *path) {
        return QString::number(point->r(QString::fromLatin1(path))->getDouble(), 'f', 1);
    };
    return tr("x %1, y %2, z %3 mm; a %4, b %5, c %6°; %7 in %8")
        .arg(number("cart.pose.frame.pos.x"), number("cart.pose.frame.pos.y"),
             number("cart.pose.frame.pos.z"), number("cart.pose.frame.ori.euler.a"),
             number("cart.pose.frame.ori.euler.b"), number("cart.pose.frame.ori.euler.c"),
             point->r(QStringLiteral("tool"))->getString(),
             point->r(QStringLiteral("wobj"))->getString());
}

bool ProjectPoints::rename(const QString &name, const QString &to)
{
    static const QRegularExpression word(QStringLiteral("^[A-Za-z_]\\w*$"));
    if (!word.match(to).hasMatch())
        return fail(tr("A point's name has letters, digits and _, and starts with no digit"));
    const auto change = [&to](QVariantList &points, int row) {
        if (rowOf(points, to) >= 0)
            return false;
        points.replace(row, named(points.at(row).toMap(), to));
        return true;
    };
    if (names().contains(to))
        return fail(tr("There is a point %1 already").arg(to));
    return edit(name, change, [&] { return tr("%1 is %2 now").arg(name, to); });
}

QString ProjectPoints::copy(const QString &name)
{
    QString to;
    const auto change = [&](QVariantList &points, int row) {
        to = freeName(points, name);
        QVariantMap point = named(points.at(row).toMap(), to);
        point.insert(QStringLiteral("uuid"), QUuid::createUuid().toString(QUuid::WithoutBraces));
        points.insert(row + 1, point);
        return true;
    };
    // The change names the copy, so what is told is put together after it.
    const auto done = [&] { return tr("%1 is a copy of %2").arg(to, name); };
    return edit(name, change, done) ? to : QString();
}

bool ProjectPoints::remove(const QString &name)
{
    const auto change = [](QVariantList &points, int row) {
        points.removeAt(row);
        return true;
    };
    return edit(name, change, [&] { return tr("%1 removed").arg(name); });
}

bool ProjectPoints::touchUp(const QString &name)
{
    const auto change = [this](QVariantList &points, int row) {
        QVariantMap point = points.at(row).toMap();
        const QJsonObject seen{
            {QStringLiteral("tool"), point.value(QStringLiteral("tool")).toString()},
            {QStringLiteral("wobj"), point.value(QStringLiteral("wobj")).toString()}};
        const auto here = m_host->helper()->controllerManager()->execRequest(
            names::robotPosition, {}, seen, true, positionTimeoutMs);
        if (here->getInt() != 0)
            return false;
        const QVariant pose = here->r(QStringLiteral("pose"))->toVariant();
        const QVariantList joints = here->r(QStringLiteral("q"))->getList();
        point.insert(QStringLiteral("cart"), QVariantMap{{QStringLiteral("pose"), pose}});
        point.insert(QStringLiteral("joint"), QVariantMap{{QStringLiteral("q"), joints}});
        points.replace(row, point);
        return true;
    };
    return edit(name, change, [&] { return tr("%1 is where the robot is now").arg(name); });
}

// Changes the controller's list instead of the host's copy: another pendant may have written since.
bool ProjectPoints::edit(const QString &name, const Change &change,
                         const std::function<QString()> &done)
{
    const QString failure = tr("%1 was not changed (%2)");
    XService *service = m_host->service();
    const auto present = service->get(this, names::project, pointList);
    QVariantList points = listOf(present.get());
    const int row = rowOf(points, name);
    if (present->cmobjCount() == 0 && present->getInt() != 0)
        return fail(failure.arg(name, schema::codeText(present->getInt())));
    if (row < 0 || !change(points, row))
        return fail(failure.arg(name, tr("the controller's list or the robot does not allow it")));
    kelp::ModuleObject whole(pointList, nullptr);
    whole.setList(this, {}, points);
    const int code = service->set(this, names::project, pointList, &whole)->getInt();
    if (code != 0)
        return fail(failure.arg(name, schema::codeText(code)));
    tree()->importFromVariant(this, points, true, true, true);
    m_host->helper()->throwLog(this, QStringLiteral("info"), done());
    return true;
}

bool ProjectPoints::fail(const QString &text)
{
    m_host->helper()->throwLog(this, QStringLiteral("error"), text);
    return false;
}

} // namespace welmo::pendant
