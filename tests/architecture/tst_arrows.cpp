#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>
#include <algorithm>

#include "support/rows.h"

namespace {

enum Uses { QtCore, AllOfQt };

/// The picture of the house: which folder may include what.
struct Rule
{
    QString folder; ///< with everything below it that has no rule of its own
    Uses qt;
    QStringList mayInclude; ///< folders with a slash at their end, or single headers
};

const QDir root(WELMO_SOURCE_DIR);
// May include whom they like.
const QStringList freeFolders{"tests", "bench"};
const QStringList hostHeaders{"kelp/", "pando/", "vu/", "tessa/"};
const QVector<Rule> rules{
    {"host/kelpCore", QtCore, {"kelp/"}},
    {"host/kelpPando", AllOfQt, {"kelp/", "pando/"}},
    {"host/kelpvu", AllOfQt, {"kelp/", "pando/", "vu/", "Eigen/"}},
    {"host/tessa", AllOfQt, hostHeaders},
    {"controller", QtCore, {"controller/", "sqlite3.h", "Eigen/"}},
    {"link",
     QtCore,
     {"link/", "controller/", "tessa/", "mosquitto.h", "mqtt_protocol.h", "openssl/", "poll.h",
      "unistd.h", "sys/eventfd.h"}},
    {"src/module", AllOfQt, hostHeaders + QStringList{"module/", "page/"}},
    {"src/page", AllOfQt,
     hostHeaders + QStringList{"page/", "settings/", "instructions/", "data/"}},
    {"src/settings", AllOfQt,
     hostHeaders + QStringList{"settings/", "data/", "instructions/orbodata.h"}},
    {"src/instructions", AllOfQt, hostHeaders + QStringList{"instructions/", "settings/", "data/"}},
    {"src/instructions/line", QtCore, {"instructions/line/"}},
    {"src/data", AllOfQt, hostHeaders + QStringList{"data/"}},
    {"pendant", AllOfQt,
     hostHeaders
         + QStringList{"pendant/", "link/", "controller/", "tools/tlcheck/", "instructions/line/",
                       "xcb/xkb.h"}},
    {"tools", AllOfQt,
     hostHeaders
         + QStringList{"tools/", "link/", "controller/", "instructions/line/", "sqlite3.h",
                       "unistd.h", "sys/eventfd.h"}},
};

// The rule of the innermost folder counts.
const Rule *ruleOf(const QString &file)
{
    const Rule *found = nullptr;
    for (const Rule &rule : rules) {
        const bool inside = file.startsWith(rule.folder + '/');
        if (inside && (!found || rule.folder.size() > found->folder.size()))
            found = &rule;
    }
    return found;
}

bool isSystem(const QString &header, Uses qt)
{
    static const QRegularExpression standard("^[a-z_]+$");
    if (header.startsWith('Q'))
        return qt == AllOfQt || QFile::exists(QT_CORE_HEADERS "/" + header);
    return standard.match(header).hasMatch();
}

// Beside the file, made of it by the build, or nobody's.
bool isOwn(const QString &file, const QString &header, Uses qt)
{
    if (header.contains('/'))
        return false;
    return QFileInfo(root.filePath(file)).dir().exists(header) || header.endsWith(".moc")
        || (header.startsWith("ui_") && qt == AllOfQt);
}

/// The includes of the file that its rule does not allow, one line each.
QStringList violations(const QString &file, const QString &text)
{
    static const QRegularExpression include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])",
                                            QRegularExpression::MultilineOption);
    const Rule *rule = ruleOf(file);
    if (!rule)
        return {file + ": has no rule"};
    QStringList lines;
    for (auto matches = include.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        const QString header = match.captured(2);
        const bool allowed = std::any_of(
            rule->mayInclude.begin(), rule->mayInclude.end(), [&](const QString &entry) {
                return entry.endsWith('/') ? header.startsWith(entry) : header == entry;
            });
        const bool quoted = match.captured(1) == "\"";
        if (!allowed && !(quoted ? isOwn(file, header, rule->qt) : isSystem(header, rule->qt)))
            lines.append(file + " must not include " + header);
    }
    return lines;
}

} // namespace

/// No arrow between the folders that the picture of the house does not draw.
class tst_Arrows : public QObject
{
    Q_OBJECT

private slots:
    void everySourceKeepsToItsRule()
    {
        QStringList found;
        for (const QString &folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (freeFolders.contains(folder) || folder.startsWith("build"))
                continue;
            QDirIterator it(root.filePath(folder), {"*.h", "*.cpp"}, QDir::Files,
                            QDirIterator::Subdirectories);
            while (it.hasNext()) {
                QFile file(it.next());
                QVERIFY(file.open(QIODevice::ReadOnly));
                found += violations(root.relativeFilePath(file.fileName()), file.readAll());
            }
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
        for (const Rule &rule : rules)
            QVERIFY2(root.exists(rule.folder), qPrintable(rule.folder));
    }
    void aForbiddenArrowIsFound()
    {
        const testsupport::Rows<QString, bool> rows{
            {"src/data", R"("settings/arcongroup.h")", true},
            {"src/data", R"("field.h")", false},
            {"src/data", R"("elsewhere.h")", true},
            {"src/settings", R"("instructions/orbodata.h")", false},
            {"src/settings", R"("instructions/moveforms.h")", true},
            {"src/instructions/line", "<QWidget>", true},
            {"host/kelpCore", "<QtWidgets/QWidget>", true},
            {"controller", "<tessa/controllerlink.h>", true},
            {"nowhere", "<vector>", true},
        };
        for (const auto &[folder, header, forbidden] : rows) {
            const QString text = "#pragma once\n  #  include " + header + '\n';
            QCOMPARE(violations(folder + "/some.cpp", text).size(), forbidden ? 1 : 0);
        }
    }
};

QTEST_GUILESS_MAIN(tst_Arrows)
#include "tst_arrows.moc"
