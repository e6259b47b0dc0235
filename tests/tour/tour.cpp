#include "tour/tour.h"

#include <QWindow>
#include <cstdio>

namespace tour {

namespace {

constexpr int patience = 30000; // ms; the robot needs its time

testsupport::Setup onDisk()
{
    testsupport::Setup setup;
    setup.keepFiles = true;
    setup.withBook = true;
    return setup;
}

} // namespace

Tour::Tour(const QString &pictureFolder)
    : TestPendant(onDisk())
    , m_folder(pictureFolder)
{ }

void Tour::step(const QString &what, const std::function<QString()> &act)
{
    try {
        tell(true, what, act());
    } catch (const std::exception &problem) {
        tell(false, what, QString::fromUtf8(problem.what()));
    }
}

void Tour::step(const QString &what, const QString &pictureName,
                const std::function<QString()> &act)
{
    step(what, act);
    takePicture(pictureName);
}

void Tour::tell(bool ok, const QString &what, const QString &seen)
{
    if (!ok)
        ++m_failures;
    std::printf("%-6s %s: %s\n", ok ? "ok" : "FAILED", qUtf8Printable(what), qUtf8Printable(seen));
    std::fflush(stdout);
}

void Tour::takePicture(const QString &name)
{
    ++m_pictures;
    const QString file =
        QStringLiteral("%1-%2.png").arg(m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    if (!picture(QDir(m_folder).filePath(file)))
        tell(false, QStringLiteral("picture"), file + " could not be written");
}

QString Tour::require(const QString &seen, const QString &wanted)
{
    if (seen != wanted)
        throw testsupport::OutOfReach(QStringLiteral("'%1', not '%2'").arg(seen, wanted));
    return seen;
}

QString Tour::requireText(const char *label, const QString &wanted)
{
    return require(text(label), wanted);
}

QString Tour::requireStored(const QString &node, const QString &file, const char *key,
                            const QString &wanted)
{
    const auto answer = host()->service()->get(nullptr, "arc_weld." + node, file);
    return require(answer->r(key)->getString(), wanted);
}

QString Tour::await(const QString &what, const std::function<bool()> &isSo)
{
    return require(QTest::qWaitFor(isSo, patience) ? what : "not " + what, what);
}

QString Tour::awaitCurrent(int least)
{
    return await("welding", [=] { return current() > least; });
}

QString Tour::awaitText(const char *label, const QString &part)
{
    return await(part, [=] { return text(label).contains(part); });
}

QString Tour::cell(const char *table, int row, int column)
{
    return find<QTableView>(table)->model()->index(row, column).data().toString();
}

void Tour::touchRow(const char *table, int row)
{
    auto *view = find<QTableView>(table);
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
}

void Tour::strike(Qt::Key key)
{
    QTest::keyClick(window()->windowHandle(), key);
    QCoreApplication::processEvents();
}

} // namespace tour
