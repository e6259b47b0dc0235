#include "tools/tlcheck/report.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>

namespace welmo::tlcheck {

namespace {

void print(FILE *stream, const QString &line)
{
    std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stream);
}

QString plainText(const QJsonObject &finding)
{
    return QStringLiteral("%1:%2:%3: %4")
        .arg(finding.value(QLatin1String("file")).toString(),
             QString::number(finding.value(QLatin1String("line")).toInt()),
             QString::number(finding.value(QLatin1String("column")).toInt()),
             finding.value(QLatin1String("message")).toString());
}

} // namespace

void Report::add(const QString &file, const tl::Findings &findings)
{
    for (const tl::Finding &finding : findings) {
        const QJsonObject object{{QStringLiteral("file"), file},
                                 {QStringLiteral("line"), finding.line + 1},
                                 {QStringLiteral("column"), finding.column},
                                 {QStringLiteral("kind"), finding.kindName()},
                                 {QStringLiteral("message"), finding.text()}};
        m_findings.append(object);
        if (!m_json)
            print(stdout, plainText(object));
    }
}

void Report::addRewritten(const QString &file, int lines)
{
    m_rewritten.append(
        QJsonObject{{QStringLiteral("file"), file}, {QStringLiteral("lines"), lines}});
    if (!m_json)
        print(stderr, QStringLiteral("%1: %2 lines rewritten").arg(file, QString::number(lines)));
}

void Report::addError(const QString &file, const QString &reason)
{
    m_errors.append(
        QJsonObject{{QStringLiteral("file"), file}, {QStringLiteral("message"), reason}});
    if (!m_json)
        print(stderr, QStringLiteral("tlcheck: %1: %2").arg(file, reason));
}

int Report::finish()
{
    if (m_json) {
        const QJsonObject all{{QStringLiteral("findings"), m_findings},
                              {QStringLiteral("rewritten"), m_rewritten},
                              {QStringLiteral("errors"), m_errors}};
        std::fputs(QJsonDocument(all).toJson().constData(), stdout);
    }
    if (std::fflush(stdout) != 0 || !m_errors.isEmpty())
        return 2;
    return m_findings.isEmpty() ? 0 : 1;
}

} // namespace welmo::tlcheck
