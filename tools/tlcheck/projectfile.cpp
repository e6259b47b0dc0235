#include "tools/tlcheck/projectfile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <map>
#include <memory>
#include <sqlite3.h>

#include "controller/core/json.h"
#include "controller/robot/projectseed.h"
#include "schema/filesets.h"
#include "schema/names.h"

namespace welmo::tlcheck {

namespace {

const QString storeName = QStringLiteral("controller.db");
const QString logSuffix = QStringLiteral("-wal");
const QString indexSuffix = QStringLiteral("-shm");
constexpr int patience = 1000; // in ms, for a pendant that is writing

using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Connection connect(const QString &file, const QByteArray &how)
{
    const QByteArray uri = "file:" + QUrl::toPercentEncoding(file, "/") + '?' + how;
    sqlite3 *handle = nullptr;
    sqlite3_open_v2(uri.constData(), &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    sqlite3_busy_timeout(handle, patience);
    return {handle, &sqlite3_close};
}

// Opens the file in a way that writes nothing beside it; which one depends on how its owner closed
// it.
Connection connectWithoutTrace(const QString &file, const QString &scratch)
{
    if (!QFile::exists(file + logSuffix))
        return connect(file, "immutable=1");
    if (QFile::exists(file + indexSuffix))
        return connect(file, "mode=ro&readonly_shm=1");
    // A log without its index, as in a copied folder: the index is made in a copy.
    const QString copy = QDir(scratch).filePath(storeName);
    QFile::copy(file, copy);
    QFile::copy(file + logSuffix, copy + logSuffix);
    return connect(copy, "mode=ro");
}

QString textAt(sqlite3_stmt *row, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(row, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(row, column));
}

// The entries of one node as JSON texts, by key; empty if they cannot be read.
std::optional<std::map<QString, QByteArray>> readNode(sqlite3 *store, const QString &path)
{
    sqlite3_stmt *handle = nullptr;
    sqlite3_prepare_v2(store, "SELECT key, value FROM entry WHERE path = ?1 AND value IS NOT NULL",
                       -1, &handle, nullptr);
    const Statement statement(handle, &sqlite3_finalize);
    const QByteArray utf8 = path.toUtf8();
    sqlite3_bind_text(handle, 1, utf8.constData(), utf8.size(), SQLITE_STATIC);
    std::map<QString, QByteArray> entries;
    int result = handle ? sqlite3_step(handle) : SQLITE_ERROR;
    for (; result == SQLITE_ROW; result = sqlite3_step(handle))
        entries.emplace(textAt(handle, 0), textAt(handle, 1).toUtf8());
    return result == SQLITE_DONE ? std::make_optional(entries) : std::nullopt;
}

// The names in a list of the project; of the variables only those of the type.
QSet<QString> namesIn(const QVariantList &items, const QString &type = {})
{
    QSet<QString> names;
    for (const QVariant &item : items) {
        const QVariantMap map = item.toMap();
        if (type.isEmpty() || map.value(QStringLiteral("type")).toString() == type)
            names.insert(map.value(QStringLiteral("name")).toString());
    }
    return names;
}

using Lists = std::function<QVariantList(const QString &key)>;

tl::ProjectNames namesOf(const Lists &lists)
{
    const auto list = [&lists](const char *key) { return lists(QString::fromLatin1(key)); };
    const QVariantList variables = list("var.system_list") + list("var._list");
    tl::ProjectNames names;
    for (const QVariant &item : list("point.system_list") + list("point._list")) {
        const QVariantMap point = item.toMap();
        const auto text = [&point](const char *key) {
            return point.value(QLatin1String(key)).toString();
        };
        names.points.insert(text("name"), {text("tool"), text("wobj")});
    }
    names.speeds = namesIn(variables, QStringLiteral("speed"));
    names.zones = namesIn(variables, QStringLiteral("zone"));
    names.tools = namesIn(list("tool.system_list") + list("tool._list"));
    names.wobjs = namesIn(list("wobj.system_list") + list("wobj._list"));
    return names;
}

} // namespace

bool hasProject(const QString &folder)
{
    return QFile::exists(QDir(folder).filePath(storeName));
}

tl::ProjectNames builtInProject()
{
    QHash<QString, QVariantList> lists;
    for (const controller::Store::Change &change : controller::projectSeed()) {
        if (change.path == welmo::names::project)
            lists.insert(change.key, change.value.toList());
    }
    tl::ProjectNames names = namesOf([&lists](const QString &key) { return lists.value(key); });
    names.knowsFiles = false;
    return names;
}

std::optional<tl::ProjectNames> readProject(const QString &folder, QString *problem)
{
    const QString file = QDir(folder).absoluteFilePath(storeName);
    const auto failed = [&](const QString &reason) {
        *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
        return std::nullopt;
    };
    if (!QFile::exists(file))
        return failed(QStringLiteral("there is no project; start a pendant on the folder once, "
                                     "or leave --data out"));
    const QTemporaryDir scratch;
    const Connection store = connectWithoutTrace(file, scratch.path());
    const auto lists = readNode(store.get(), welmo::names::project);
    if (!lists)
        return failed(QString::fromUtf8(sqlite3_errmsg(store.get())));
    if (lists->empty())
        return failed(QStringLiteral("holds no robot project"));
    tl::ProjectNames names = namesOf([&lists](const QString &key) {
        const auto entry = lists->find(key);
        return entry == lists->end()
            ? QVariantList()
            : controller::fromJson(entry->second).value_or(QVariant()).toList();
    });
    for (const schema::FileSet *set : schema::fileSets()) {
        const auto files = readNode(store.get(), set->node());
        if (!files)
            return failed(QString::fromUtf8(sqlite3_errmsg(store.get())));
        for (const auto &entry : *files)
            names.files.insert(entry.first);
    }
    return names;
}

} // namespace welmo::tlcheck
