#include "arrows.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

namespace arrows {

namespace {

const QStringList hostHeaders{"kelp/", "pando/", "vu/", "tessa/"};
const QStringList freeFolders{"tests", "bench"};

QStringList sourcesBelow(const QString &root, const QString &folder)
{
    QStringList files;
    QDirIterator it(QDir(root).filePath(folder), {"*.h", "*.cpp"}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(QDir(root).relativeFilePath(it.next()));
    files.sort();
    return files;
}

// The rule of the innermost folder counts.
const Rule *ruleOf(const QString &file)
{
    const Rule *found = nullptr;
    for (const Rule &rule : rules()) {
        const bool inside = file.startsWith(rule.folder + '/');
        if (inside && (!found || rule.folder.size() > found->folder.size()))
            found = &rule;
    }
    return found;
}

bool isSystem(const QString &header, Rule::Qt qt)
{
    static const QRegularExpression standard("^[a-z_]+$");
    if (header.startsWith('Q'))
        return qt == Rule::Qt::Any || QFile::exists(QT_CORE_HEADERS "/" + header);
    return standard.match(header).hasMatch();
}

// Beside the file, made of it by the build, or nobody's.
bool isOwn(const QString &file, const QString &header, Rule::Qt qt)
{
    if (header.contains('/'))
        return false;
    return QFile::exists(QFileInfo(file).dir().filePath(header)) || header.endsWith(".moc")
        || (header.startsWith("ui_") && qt == Rule::Qt::Any);
}

bool isAllowed(const QString &header, const QStringList &allowed)
{
    return std::any_of(allowed.begin(), allowed.end(), [&](const QString &entry) {
        return entry.endsWith('/') ? header.startsWith(entry) : header == entry;
    });
}

QStringList violationsIn(const QString &root, const QString &name, const Rule &rule)
{
    static const QRegularExpression include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    const QString path = QDir(root).filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {name + ": cannot be read"};
    QStringList lines;
    for (int number = 1; !file.atEnd(); ++number) {
        const auto match = include.match(QString::fromUtf8(file.readLine()));
        const QString header = match.captured(2);
        const bool quoted = match.captured(1) == "\"";
        const bool fine = !match.hasMatch() || isAllowed(header, rule.mayInclude)
            || (quoted ? isOwn(path, header, rule.qt) : isSystem(header, rule.qt));
        if (!fine)
            lines.append(QString("%1:%2: %3 must not include %4")
                             .arg(name, QString::number(number), rule.folder, header));
    }
    return lines;
}

} // namespace

const QVector<Rule> &rules()
{
    using Qt = Rule::Qt;
    static const QVector<Rule> table{
        {"host/kelpCore", Qt::Core, {"kelp/"}},
        {"host/kelpPando", Qt::Any, {"kelp/", "pando/"}},
        {"host/kelpvu", Qt::Any, {"kelp/", "pando/", "vu/", "Eigen/"}},
        {"host/tessa", Qt::Any, hostHeaders},
        {"controller", Qt::Core, {"controller/", "sqlite3.h", "Eigen/"}},
        {"link",
         Qt::Core,
         {"link/", "controller/", "tessa/", "mosquitto.h", "mqtt_protocol.h", "openssl/", "poll.h",
          "unistd.h", "sys/eventfd.h"}},
        {"src/module", Qt::Any, hostHeaders + QStringList{"module/", "page/"}},
        {"src/page", Qt::Any,
         hostHeaders + QStringList{"page/", "settings/", "instructions/", "data/"}},
        {"src/settings", Qt::Any,
         hostHeaders + QStringList{"settings/", "data/", "instructions/orbodata.h"}},
        {"src/instructions", Qt::Any,
         hostHeaders + QStringList{"instructions/", "settings/", "data/"}},
        {"src/instructions/line", Qt::Core, {"instructions/line/"}},
        {"src/data", Qt::Any, hostHeaders + QStringList{"data/"}},
        {"pendant", Qt::Any,
         hostHeaders
             + QStringList{"pendant/", "link/", "controller/", "tools/tlcheck/",
                           "instructions/line/", "xcb/xkb.h"}},
        {"tools", Qt::Any,
         hostHeaders
             + QStringList{"tools/", "link/", "controller/", "instructions/line/", "sqlite3.h",
                           "unistd.h", "sys/eventfd.h"}},
    };
    return table;
}

QStringList filesWithoutRule(const QString &root)
{
    QStringList files;
    const QStringList folders = QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &folder : folders) {
        if (!freeFolders.contains(folder) && !folder.startsWith("build"))
            files += sourcesBelow(root, folder);
    }
    files.erase(std::remove_if(files.begin(), files.end(),
                               [](const QString &file) { return ruleOf(file); }),
                files.end());
    return files;
}

QStringList violations(const QString &root, const QString &folder)
{
    QStringList lines;
    const QStringList files = sourcesBelow(root, folder);
    for (const QString &file : files) {
        const Rule *rule = ruleOf(file);
        if (rule && rule->folder == folder)
            lines += violationsIn(root, file, *rule);
    }
    return lines;
}

} // namespace arrows
