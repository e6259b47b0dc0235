#include <QtTest>
#include <algorithm>

#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;

namespace {

enum Uses { QtCore, AllOfQt };

/// A room of docs/rooms.dot: what a folder may include.
struct Room
{
    QString folder;
    Uses qt = QtCore;
    QStringList headers; ///< besides Qt and the standard library; folders with a slash at the end
    QStringList arrows; ///< the rooms that it may include
};

const QDir root(WELMO_SOURCE_DIR);
// They compose what they like.
const QStringList composers{"tests", "bench"};

QString textOf(const QString &name)
{
    return QString::fromUtf8(contentOf(root.filePath(name)));
}

QRegularExpressionMatchIterator all(const char *pattern, const QString &text)
{
    return QRegularExpression(QString::fromLatin1(pattern)).globalMatch(text);
}

QVector<Room> readRooms()
{
    const QString text = textOf("docs/rooms.dot");
    QVector<Room> rooms;
    for (auto it = all(R"re("([\w/]+)" \[qt=(core|all)(?:, headers="([^"]*)")?\])re", text);
         it.hasNext();) {
        const auto match = it.next();
        rooms.append({match.captured(1),
                      match.captured(2) == "all" ? AllOfQt : QtCore,
                      match.captured(3).split(' ', Qt::SkipEmptyParts),
                      {}});
    }
    for (auto it = all(R"re("([\w/]+)" -> (?:"([\w/]+)"|\{([^}]*)\}))re", text); it.hasNext();) {
        const auto match = it.next();
        QStringList targets{match.captured(2)};
        for (auto names = all(R"re("([\w/]+)")re", match.captured(3)); names.hasNext();)
            targets.append(names.next().captured(1));
        targets.removeAll(QString());
        for (Room &room : rooms) {
            if (room.folder == match.captured(1))
                room.arrows += targets;
        }
    }
    return rooms;
}

const QVector<Room> rooms = readRooms();

// The innermost folder counts; null outside every room.
const Room *roomOf(const QString &path)
{
    const Room *found = nullptr;
    for (const Room &room : rooms) {
        const bool inside = path.startsWith(room.folder + '/');
        if (inside && (!found || room.folder.size() > found->folder.size()))
            found = &room;
    }
    return found;
}

// Where the header lies: below the root, below src/, or among a host library's public headers.
QString pathOf(const QString &header)
{
    static const QMap<QString, QString> hostLibraries{
        {"kelp", "kelpCore"}, {"pando", "kelpPando"}, {"vu", "kelpvu"}, {"tessa", "tessa"}};
    const QString first = header.section('/', 0, 0);
    if (hostLibraries.contains(first))
        return "host/" + hostLibraries[first] + "/include/" + header;
    return root.exists(first) ? header : "src/" + header;
}

bool isSystem(const QString &header, Uses qt)
{
    static const QRegularExpression standard("^[a-z_]+$");
    if (header.startsWith('Q'))
        return qt == AllOfQt || QFile::exists(QT_CORE_HEADERS "/" + header);
    return standard.match(header).hasMatch();
}

bool isMadeByTheBuild(const QString &header, Uses qt)
{
    return header.endsWith(".moc") || (header.startsWith("ui_") && qt == AllOfQt);
}

bool isAmong(const QStringList &entries, const QString &header)
{
    return std::any_of(entries.begin(), entries.end(), [&](const QString &entry) {
        return entry.endsWith('/') ? header.startsWith(entry) : header == entry;
    });
}

struct Include
{
    QString header;
    bool quoted;
};

QVector<Include> includesOf(const QString &text)
{
    static const QRegularExpression include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])",
                                            QRegularExpression::MultilineOption);
    QVector<Include> includes;
    for (auto matches = include.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        includes.append({match.captured(2), match.captured(1) == "\""});
    }
    return includes;
}

/// What the file includes and may not, one line each. The arrows that it uses go to @p used.
QStringList violations(const QString &file, const QString &text, QSet<QString> *used = nullptr)
{
    const Room *from = roomOf(file);
    if (!from)
        return {file + ": lies in no room"};
    QStringList lines;
    for (const Include &include : includesOf(text)) {
        const Room *to = include.header.contains('/') ? roomOf(pathOf(include.header)) : nullptr;
        const QString arrow = to && to != from ? from->folder + " -> " + to->folder : QString();
        const bool allowed = to ? to == from || from->arrows.contains(to->folder)
            : include.quoted    ? isMadeByTheBuild(include.header, from->qt)
                                : isSystem(include.header, from->qt);
        if (!allowed && !isAmong(from->headers, include.header))
            lines.append(file + " must not include " + include.header);
        if (used && !arrow.isEmpty())
            used->insert(arrow);
    }
    return lines;
}

/// Every source below the root that lies in a room, or should.
QStringList allSources()
{
    QStringList files;
    for (const QString &folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (composers.contains(folder) || folder.startsWith("build"))
            continue;
        QDirIterator it(root.filePath(folder), {"*.h", "*.cpp"}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            files.append(root.relativeFilePath(it.next()));
    }
    return files;
}

using Graph = QMap<QString, QStringList>;

// All that each node leads to.
QMap<QString, QSet<QString>> reachOf(const Graph &graph)
{
    QMap<QString, QSet<QString>> reached;
    for (const QString &node : graph.keys()) {
        for (QStringList open = graph[node]; !open.isEmpty();) {
            const QString next = open.takeLast();
            if (reached[node].contains(next))
                continue;
            reached[node].insert(next);
            open += graph.value(next);
        }
    }
    return reached;
}

QStringList circlesIn(const Graph &graph)
{
    QStringList nodes;
    const auto reached = reachOf(graph);
    for (auto it = reached.begin(); it != reached.end(); ++it) {
        if (it->contains(it.key()))
            nodes.append(it.key());
    }
    return nodes;
}

} // namespace

/// No arrow between the rooms that docs/rooms.dot does not draw, and nothing that goes in circles.
class tst_Arrows : public QObject
{
    Q_OBJECT

private slots:
    void everySourceKeepsToItsRoom()
    {
        QStringList found;
        QSet<QString> used;
        for (const QString &file : allSources())
            found += violations(file, textOf(file), &used);
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
        for (const Room &room : rooms) {
            QVERIFY2(root.exists(room.folder), qPrintable(room.folder));
            for (const QString &target : room.arrows) {
                const QString arrow = room.folder + " -> " + target;
                QVERIFY2(used.contains(arrow), qPrintable("nothing uses the arrow " + arrow));
            }
        }
    }
    void nothingGoesInCircles()
    {
        QCOMPARE(circlesIn(houses()).join(' '), QString());
        // A component is a header with its source. Within the stand-in of tessa, host, service and
        // manager know each other, as the four closed libraries give it.
        Graph components;
        for (const QString &file : allSources()) {
            const QString component = file.section('.', 0, 0);
            for (const Include &include : includesOf(textOf(file))) {
                const QString other = pathOf(include.header).section('.', 0, 0);
                if (other != component && !component.startsWith("host/tessa/"))
                    components[component].append(other);
            }
        }
        QCOMPARE(circlesIn(components).join(' '), QString());
    }
    void aForbiddenArrowIsFound_data()
    {
        addRows<QString, bool>({{"src/data", R"("settings/arcongroup.h")", true},
                                {"src/settings", R"("data/field.h")", false},
                                {"src/page", R"("elsewhere.h")", true},
                                {"tl", "<QWidget>", true},
                                {"host/kelpCore", "<QtWidgets/QWidget>", true},
                                {"controller", "<tessa/controllerlink.h>", true},
                                {"nowhere", "<vector>", true}});
    }
    void aForbiddenArrowIsFound()
    {
        const auto &[room, header, forbidden] = currentRow<QString, bool>();
        const QString file = room + "/some.cpp";
        const QString text = "#pragma once\n  #  include " + header + '\n';
        QCOMPARE(violations(file, text).size(), forbidden ? 1 : 0);
        QCOMPARE(circlesIn({{"b", {"c"}}, {"c", {"b", "d"}}, {"d", {"e"}}}),
                 (QStringList{"b", "c"}));
    }
    // It leaves out what follows from other arrows, and draws nothing else.
    void thePictureShowsTheseArrows()
    {
        Graph drawn;
        const QString picture = textOf("docs/pictures/rooms.svg");
        for (auto it = all("<title>([\\w/]+)&#45;&gt;([\\w/]+)</title>", picture); it.hasNext();) {
            const auto match = it.next();
            drawn[match.captured(1)].append(match.captured(2));
        }
        QVERIFY2(reachOf(drawn) == reachOf(houses()), "draw it anew with ./dev picture");
    }

private:
    static Graph houses()
    {
        Graph houses;
        for (const Room &room : rooms) {
            if (!room.arrows.isEmpty())
                houses[room.folder] = room.arrows;
        }
        return houses;
    }
};

QTEST_GUILESS_MAIN(tst_Arrows)
#include "tst_arrows.moc"
