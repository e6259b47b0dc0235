#include "pendant/program/runresult.h"

#include <QCoreApplication>
#include <QStringList>

#include "pendant/state/reasontext.h"

namespace welmo::pendant {

namespace {

class RunResult
{
    Q_DECLARE_TR_FUNCTIONS(RunResult)
public:
    explicit RunResult(const QVariantMap &result)
        : m_result(result)
    { }

    QString text() const
    {
        QString how = end();
        if (const QString faults = faultsText(); !faults.isEmpty())
            how += tr(", %1").arg(faults);
        QStringList parts{how};
        if (const QString seams = seamsText(); !seams.isEmpty())
            parts.append(seams);
        if (const int ignored = number("ignored"); ignored > 0)
            parts.append(ignored == 1 ? tr("1 line ignored") : tr("%1 lines ignored").arg(ignored));
        if (m_result.value(QStringLiteral("arc_on")).toBool())
            parts.append(tr("the arc was still on"));
        return parts.join(tr("; "));
    }

private:
    int number(const char *key) const { return m_result.value(QLatin1String(key)).toInt(); }
    QString millimetres(const char *key) const
    {
        return QString::number(m_result.value(QLatin1String(key)).toDouble(), 'f', 0);
    }

    QString end() const
    {
        const QString word = m_result.value(QStringLiteral("end")).toString();
        if (word == QLatin1String("stopped"))
            return tr("stopped");
        return word == QLatin1String("failed") ? tr("stopped by a fault") : tr("finished");
    }
    QString faultsText() const
    {
        const QVariantList faults = itemsOf(m_result.value(QStringLiteral("faults")));
        if (faults.isEmpty())
            return {};
        const QVariantMap first = faults.first().toMap();
        const QString what = reasonText(first.value(QStringLiteral("code")).toString(),
                                        first.value(QStringLiteral("arguments")).toList(),
                                        first.value(QStringLiteral("line")).toInt());
        return faults.size() == 1 ? tr("1 fault: %1").arg(what)
                                  : tr("%1 faults, the first: %2").arg(faults.size()).arg(what);
    }
    // Empty if no seams were to be welded.
    QString seamsText() const
    {
        if (number("seams_of") == 0)
            return {};
        const QString mode = m_result.value(QStringLiteral("mode")).toString();
        if (mode != QLatin1String("real"))
            return mode == QLatin1String("simu") ? tr("simulated, no arc") : tr("test run, no arc");
        return tr("%1 of %2 seams, %3 of %4 mm")
            .arg(QString::number(number("seams")), QString::number(number("seams_of")),
                 millimetres("welded"), millimetres("length"));
    }

    const QVariantMap &m_result;
};

} // namespace

QString runResultText(const QVariantMap &result)
{
    return RunResult(result).text();
}

} // namespace welmo::pendant
