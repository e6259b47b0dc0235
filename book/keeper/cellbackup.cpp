#include "book/keeper/cellbackup.h"

#include <QDateTime>
#include <QJsonDocument>
#include <algorithm>

#include "book/keeper/bookkeeper.h"
#include "book/keeper/filewatch.h"
#include "book/records/filecontent.h"
#include "book/records/limitsjson.h"
#include "schema/filesets.h"

namespace welmo::book {

namespace {

const QString ownList = QStringLiteral("._list");

const QStringList &valueNodes()
{
    static const QStringList nodes{names::runningParam, names::anticollisionParam,
                                   names::clampingTorchParam, names::toolPage};
    return nodes;
}

QVariantMap filesOf(const schema::FileSet &set, const FileWatch &watch)
{
    QVariantMap files;
    for (const QString &file : set.fileNames()) {
        if (watch.files().contains(file))
            files.insert(file, watch.files().value(file));
    }
    return files;
}

std::optional<QVariantMap> project(CellWriter &cell)
{
    const auto lists = cell.read(names::project, {});
    if (!lists)
        return {};
    QVariantMap project;
    const QVariantMap kinds = lists->toMap();
    for (auto kind = kinds.keyBegin(); kind != kinds.keyEnd(); ++kind) {
        const QString list = *kind + ownList; // the other one is built in
        const auto items = cell.read(names::project, list);
        if (!items)
            return {};
        project.insert(list, *items);
    }
    return project;
}

// The entries of a backup in the order of writing: first those that others refer to by name.
QVector<CellChange> placesOf(const BackupFile &file)
{
    QVector<CellChange> places;
    const auto addEntries = [&](const QString &node) {
        const QVariantMap entries = file.values.value(node).toMap();
        for (auto it = entries.begin(); it != entries.end(); ++it)
            places.append({node, it.key(), *it});
    };
    addEntries(names::project);
    for (const QString &node : valueNodes()) {
        if (file.values.contains(node))
            places.append({node, {}, file.values.value(node)});
    }
    for (const schema::FileSet *set : schema::fileSets())
        addEntries(set->node());
    addEntries(names::released);
    return places;
}

QVariantMap asMap(const Limits &limits)
{
    return QJsonDocument::fromJson(toJson(limits)).toVariant().toMap();
}

Limits limitsFrom(const QString &file, const QVariant &map)
{
    return limitsFromJson(file, QJsonDocument::fromVariant(map).toJson());
}

} // namespace

std::optional<BackupFile> collectBackup(Bookkeeper *keeper, QString *problem)
{
    BackupFile file;
    file.cell = keeper->cellName();
    const QDateTime now = QDateTime::currentDateTime();
    file.written = now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODate);
    for (const schema::FileSet *set : schema::fileSets())
        file.values.insert(set->node(), filesOf(*set, keeper->files()));
    for (const QString &node : valueNodes()) {
        const auto value = keeper->cell().read(node, {});
        if (value && value->isValid())
            file.values.insert(node, *value);
        else if (!value)
            *problem = BackupFile::tr("%1 cannot be read").arg(node);
    }
    if (const auto lists = project(keeper->cell()))
        file.values.insert(names::project, *lists);
    else
        *problem = BackupFile::tr("%1 cannot be read").arg(names::project);
    file.values.insert(names::released, keeper->releases().enforced());
    for (const Limits &limits : keeper->allLimits())
        file.limits.insert(limits.file, asMap(limits));
    return problem->isEmpty() ? std::optional<BackupFile>(file) : std::nullopt;
}

std::optional<QVector<RestoreItem>> differencesTo(const BackupFile &file, Bookkeeper *keeper,
                                                  QString *problem)
{
    QVector<RestoreItem> items;
    for (const CellChange &place : placesOf(file)) {
        const schema::FileSet *set = schema::setOfFile(place.key);
        std::optional<QVariant> now = set && place.node == set->node()
            ? keeper->files().files().value(place.key)
            : keeper->cell().read(place.node, place.key);
        if (!now) {
            *problem = BackupFile::tr("%1 cannot be read").arg(place.node);
            return {};
        }
        if (!holds(place, *now))
            items.append({place, *now});
    }
    for (auto it = file.limits.begin(); it != file.limits.end(); ++it) {
        const Limits wanted = limitsFrom(it.key(), *it);
        const QVariantMap now = asMap(keeper->limits(it.key()));
        if (!sameValues(now, asMap(wanted)))
            items.append({{{}, it.key(), *it}, now, wanted});
    }
    return items;
}

int differingItems(const QVariantList &before, const QVariantList &after)
{
    const auto missing = [](const QVariantList &these, const QVariantList &there) {
        return int(std::count_if(these.begin(), these.end(), [&](const QVariant &one) {
            return std::none_of(there.begin(), there.end(),
                                [&](const QVariant &other) { return sameValues(one, other); });
        }));
    };
    return std::max(missing(before, after), missing(after, before));
}

} // namespace welmo::book
