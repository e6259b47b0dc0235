#include "controller/core/storeformat.h"

#include <QUuid>
#include <functional>
#include <sqlite3.h>

#include "controller/core/auditlog.h"
#include "controller/core/checksum.h"
#include "controller/core/difference.h"
#include "controller/core/json.h"
#include "schema/names.h"

namespace welmo::controller::storeformat {

namespace {

// A removed entry keeps its row without a value, so that its revision goes on counting.
constexpr char entrySql[] = "CREATE TABLE entry (path TEXT NOT NULL, key TEXT NOT NULL,"
                            " value TEXT, revision INTEGER NOT NULL, sum INTEGER NOT NULL,"
                            " PRIMARY KEY (path, key)) WITHOUT ROWID;";

// Added by version 2.
constexpr char besidesSql[] =
    "CREATE TABLE about (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE audit (number INTEGER PRIMARY KEY, time TEXT NOT NULL, user TEXT NOT NULL,"
    " client TEXT NOT NULL, path TEXT NOT NULL, key TEXT NOT NULL, revision INTEGER NOT NULL,"
    " content TEXT NOT NULL, seal TEXT NOT NULL);"
    "CREATE INDEX audit_place ON audit (path, key, number);";

constexpr char entriesSql[] = "SELECT path, key, value, revision FROM entry";
constexpr char setSumSql[] = "UPDATE entry SET sum = ?3 WHERE path = ?1 AND key = ?2";
// Version 1 kept the audit as entries whose numbers wrapped around.
constexpr char oldAuditSql[] = "SELECT value FROM entry WHERE path = 'cell.audit'"
                               " AND json_valid(value) ORDER BY json_extract(value, '$.number')";
constexpr char dropOldAuditSql[] = "DELETE FROM entry WHERE path = 'cell.audit'";

bool stamp(Database &database)
{
    const QString sql = QStringLiteral("PRAGMA application_id = %1; PRAGMA user_version = %2")
                            .arg(applicationId)
                            .arg(version);
    return database.execute(sql.toUtf8().constData())
        && database.setAbout(identityName, newIdentity());
}

bool inTransaction(Database &database, const std::function<bool()> &work)
{
    Transaction transaction(database);
    return transaction.hasBegun() && work() && transaction.commit();
}

bool addChecksums(Database &database)
{
    if (!database.execute("ALTER TABLE entry ADD COLUMN sum INTEGER NOT NULL DEFAULT 0"))
        return false;
    Statement entries(database, entriesSql);
    Statement setSum(database, setSumSql);
    quint64 total = 0;
    int result = entries.step();
    for (; result == SQLITE_ROW; result = entries.step()) {
        const QByteArray value = entries.isNull(2) ? QByteArray() : entries.utf8(2);
        const qint64 sum = checksum(entries.utf8(0), entries.utf8(1), value, entries.number(3));
        total += static_cast<quint64>(sum);
        if (!setSum.bind(1, entries.utf8(0)).bind(2, entries.utf8(1)).bind(3, sum).run())
            return false;
    }
    return result == SQLITE_DONE && database.setAbout(sumName, QString::number(total));
}

AuditLog::Record fromVersion1(const QVariantMap &entry)
{
    const auto text = [&entry](const char *key) {
        return entry.value(QLatin1String(key)).toString();
    };
    const QVariantList changes =
        difference(entry.value(QStringLiteral("old")), entry.value(QStringLiteral("new")));
    return {0,
            text("time"),
            text("user"),
            text("client"),
            text("path"),
            text("key"),
            entry.value(QStringLiteral("revision")).toLongLong(),
            toJson(QVariantMap{{QStringLiteral("changes"), changes}})};
}

bool takeOverAudit(Database &database)
{
    AuditLog log(database);
    Statement old(database, oldAuditSql);
    int result = log.load() ? old.step() : SQLITE_ERROR;
    for (; result == SQLITE_ROW; result = old.step()) {
        const std::optional<QVariant> entry = fromJson(old.utf8(0));
        if (entry && !log.append(fromVersion1(entry->toMap())))
            return false;
    }
    old.reset();
    return result == SQLITE_DONE && database.execute(dropOldAuditSql);
}

} // namespace

bool create(Database &database)
{
    return inTransaction(database, [&database] {
        return database.execute(entrySql) && database.execute(besidesSql) && stamp(database);
    });
}

bool migrate(Database &database, qint64 from)
{
    return from >= version || inTransaction(database, [&database] {
               return database.execute(besidesSql) && takeOverAudit(database)
                   && addChecksums(database) && stamp(database);
           });
}

QString newIdentity()
{
    return QUuid::createUuid().toString(QUuid::Id128);
}

} // namespace welmo::controller::storeformat
