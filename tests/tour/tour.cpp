#include "tour/tour.h"

#include <QDir>
#include <cstdio>

namespace tour {

namespace {

testsupport::Setup onDisk()
{
    testsupport::Setup setup;
    setup.keepFiles = true;
    return setup;
}

} // namespace

Tour::Tour(const QString &pictureFolder)
    : m_folder(pictureFolder)
    , m_pendant(onDisk())
{ }

void Tour::step(const QString &what, const std::function<QString()> &act)
{
    try {
        tell(true, what, act());
    } catch (const std::exception &problem) {
        tell(false, what, QString::fromUtf8(problem.what()));
    }
}

void Tour::tell(bool ok, const QString &what, const QString &seen)
{
    if (!ok)
        ++m_failures;
    std::printf("%-6s %s: %s\n", ok ? "ok" : "FAILED", qUtf8Printable(what), qUtf8Printable(seen));
    std::fflush(stdout);
}

QString Tour::require(const QString &seen, const QString &wanted)
{
    if (seen != wanted)
        throw testsupport::OutOfReach(QStringLiteral("'%1', not '%2'").arg(seen, wanted));
    return seen;
}

void Tour::picture(const QString &name)
{
    ++m_pictures;
    const QString file =
        QStringLiteral("%1-%2.png").arg(m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    if (!m_pendant.picture(QDir(m_folder).filePath(file)))
        tell(false, QStringLiteral("picture"), file + " could not be written");
}

} // namespace tour
