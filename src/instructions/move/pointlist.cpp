#include "instructions/move/pointlist.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>
#include <QUuid>

#include "adapter/hostadapter.h"
#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo::points {

namespace {

// The project's lists are entries of one controller node; the host keeps a copy under this path.
const QString projectNode = QStringLiteral("orbo.project");
const QString pointList = QStringLiteral("point._list");
const QString nameKey = QStringLiteral("name");

struct PointList
{
    Q_DECLARE_TR_FUNCTIONS(PointList)
};

kelp::ModuleObject *list(const QString &key)
{
    return m(projectNode + QLatin1Char('.') + key);
}

QString nameOf(const kelp::ModuleObject *entry)
{
    return entry->r(nameKey)->getString(QString());
}

const kelp::ModuleObject *entryNamed(const QString &kind, const QString &name)
{
    for (const char *part : {".system_list", "._list"}) {
        const auto entries = list(kind + QString::fromLatin1(part))->cmobjs(false);
        for (const kelp::ModuleObject *entry : entries) {
            if (nameOf(entry) == name)
                return entry;
        }
    }
    return nullptr;
}

// A name that is neither a name nor an id of a present point: names find points, ids keep them
// apart.
QString freeName(const kelp::ModuleObject *present, const QString &wished)
{
    kelp::ModuleObject taken(QStringLiteral("taken"), nullptr);
    const auto entries = present->cmobjs(false);
    for (const kelp::ModuleObject *entry : entries) {
        taken.c(entry->name(), true);
        taken.c(nameOf(entry), true);
    }
    static const QRegularExpression word(QStringLiteral("^\\w+$")); // what a program line can name
    const bool usable = word.match(wished).hasMatch() && !taken.hasCmobj(wished, false);
    return usable ? wished : taken.generateId(&taken);
}

void fill(QObject *sender, kelp::ModuleObject *point, const Position &position)
{
    const auto set = [sender, point](const char *key, const QVariant &value) {
        point->set(sender, QString::fromLatin1(key), value, true);
    };
    const QString now =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy/MM/dd hh:mm:ss"));
    const PoseFrame frame = frameOf(position.workObject);
    set("name", point->name());
    set("id", point->name());
    set("uuid", QUuid::createUuid().toString(QUuid::WithoutBraces));
    // Stored, so it is not translated.
    set("description", QStringLiteral("Auto generate at: %1").arg(now));
    set("tool", position.tool);
    set("wobj", position.workObject);
    set("related_frame", QStringLiteral("wobj"));
    set("coordinate.user", frame.userFrame);
    set("coordinate.wobj", frame.workObject);
    set("cart.pose.frame", {});
    writePose(sender, point->r(QStringLiteral("cart.pose.frame")), position.pose);
    point->setList(sender, QStringLiteral("joint.q"), position.joints, true);
}

// Adds to the controller's list instead of the host's copy: another pendant may have written since.
bool addOnController(QObject *sender, const kelp::ModuleObject *present,
                     const kelp::ModuleObject *point)
{
    QVariantList items;
    const auto entries = present->cmobjs(false);
    for (const kelp::ModuleObject *entry : entries)
        items.append(host::toVariant(entry));
    items.append(host::toVariant(point));
    kelp::ModuleObject whole(pointList, nullptr);
    whole.setList(sender, QString(), items, true);
    return xservice()->set(sender, projectNode, pointList, &whole)->getInt(0) == 0;
}

} // namespace

QStringList names()
{
    QStringList result;
    const auto entries = list(pointList)->cmobjs(false);
    for (const kelp::ModuleObject *entry : entries)
        result.append(nameOf(entry));
    return result;
}

std::optional<Point> find(const QString &name)
{
    const kelp::ModuleObject *entry = entryNamed(QStringLiteral("point"), name);
    if (!entry)
        return {};
    const auto word = [entry](const char *path, const QString &otherwise) {
        const QString text = entry->r(QString::fromLatin1(path))->getString(QString());
        return text.isEmpty() ? otherwise : text;
    };
    const auto frame = [&word](const char *path) { return word(path, PoseFrame::none); };
    return Point{readPose(entry->r(QStringLiteral("cart.pose.frame"))),
                 {frame("coordinate.user"), frame("coordinate.wobj")},
                 word("tool", {}),
                 word("wobj", {})};
}

PoseFrame frameOf(const QString &workObject)
{
    PoseFrame frame{PoseFrame::none, workObject};
    const kelp::ModuleObject *object = entryNamed(QStringLiteral("wobj"), workObject);
    const QString own =
        object ? object->r(QStringLiteral("user_frame"))->getString(QString()) : QString();
    const kelp::ModuleObject *frames = list(QStringLiteral("user_frame.system_list"));
    const QString builtIn = nameOf(frames->cmobj(0));
    if (!own.isEmpty() && entryNamed(QStringLiteral("user_frame"), own))
        frame.userFrame = own;
    else if (!builtIn.isEmpty())
        frame.userFrame = builtIn;
    return frame;
}

QString add(QObject *sender, const Position &position, const QString &wished)
{
    const auto present = xservice()->get(sender, projectNode, pointList);
    if (!arcweld::readFailed(present)) {
        kelp::ModuleObject point(freeName(present.get(), wished), nullptr);
        fill(sender, &point, position);
        if (addOnController(sender, present.get(), &point)) {
            list(pointList)->c(point.name(), true)->copyFrom(sender, &point, true, true);
            return point.name();
        }
    }
    report::error(sender, PointList::tr("create point fail"));
    return {};
}

} // namespace welmo::points
