#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include "controller/core/json.h"
#include "fuzz.h"
#include "kelp/jsonfile.h"
#include "support/files.h"
#include "tessa/thememanager.h"
#include "vu/xtheme.h"

using vu::xtheme::Theme;

/// The input is read as style rules and as a theme.
void fuzz(const QByteArray &input)
{
    if (welmo::controller::repeatsKey(input))
        return; // Qt leaks memory over it; only the package brings such files
    static const QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath("rules.json");
    testsupport::writeFile(path, input);

    QString error;
    static const Theme light = Theme::load(":/tessa/theme/light.json", &error);
    const Theme theme = Theme::load(path, &error);
    for (const Theme &current : {light, theme}) {
        vu::xtheme::setCurrent(current);
        tessa::ThemeManager manager;
        QStringList problems;
        QObject::connect(&manager, &tessa::ThemeManager::problem,
                         [&problems](const QString &line) { problems.append(line); });
        const QString sheet = manager.genStyleSheet(path);
        require(manager.genStyleSheet(path) == sheet, "a sheet is made once");
        const QJsonDocument document = kelp::readJsonFile(path, &error);
        if (!document.isArray()) {
            require(sheet.isEmpty() && problems.size() == 1, "what is no list is reported", sheet);
            continue;
        }
        int nameless = 0;
        for (const auto &rule : document.array())
            nameless += rule.toObject().value("name").toString().isEmpty();
        require(problems.size() == nameless || problems.size() == nameless + 1,
                "a rule without a selector is reported, and unknown tokens once");
        require(sheet.isEmpty() == (nameless == document.array().size()),
                "all other rules are in the sheet");
    }
    const QString text = textOf(input);
    QStringList unknown;
    const QString resolved = theme.resolve(text, &unknown);
    require(text.contains('$') || resolved == text, "a text without tokens stays", text);
    theme.color(text.left(40));
}
