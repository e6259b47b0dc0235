#include "pendant/state/refusals.h"

#include "tessa/host.h"

#include "pendant/state/reasontext.h"
#include "schema/filesets.h"
#include "schema/reasons.h"

namespace welmo::pendant {

namespace {

bool isAboutFiles(const QString &path)
{
    const auto &sets = schema::fileSets();
    return path == names::enableWeldParam
        || std::any_of(sets.begin(), sets.end(),
                       [&](const schema::FileSet *set) { return path == set->node(); });
}

} // namespace

// Queued: no code runs inside a call, and the package's own line comes first.
void tellRefusals(tessa::Host *host, QObject *cell)
{
    const auto tell = [host, cell](const QString &path, const QVariantMap &why) {
        const QString reason = why.value(QStringLiteral("reason")).toString();
        const QString text =
            schema::reasonText(reason, itemsOf(why.value(QStringLiteral("arguments"))));
        const auto &before = host->helper()->log()->entries();
        const bool isTold = !before.isEmpty() && before.first().text.contains(text);
        if (!reason.isEmpty() && isAboutFiles(path) && !isTold)
            host->helper()->throwLog(cell, QStringLiteral("error"), text);
    };
    QObject::connect(host->service(), &XService::refused, cell, tell, Qt::QueuedConnection);
}

} // namespace welmo::pendant
