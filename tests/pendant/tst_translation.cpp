#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

namespace {

// Every text of a .ts file by context and source, with its translation; empty when unfinished.
QMap<QString, QString> readTexts(const QString &path)
{
    QMap<QString, QString> texts;
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    QString context;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            const bool unfinished = xml.attributes().hasAttribute("type");
            const QString text = xml.readElementText();
            texts.insert(context + ": " + source, unfinished ? QString() : text);
        }
    }
    return texts;
}

} // namespace

class TestTranslation : public QObject
{
    Q_OBJECT
private slots:
    // What lupdate finds in the sources today against what the shipped file translates.
    void everyTextIsTranslated()
    {
        const QTemporaryDir folder;
        const QString found = folder.filePath("found.ts");
        QProcess lupdate;
        lupdate.setWorkingDirectory(SOURCE_FOLDER);
        lupdate.start(LUPDATE,
                      {"-silent", "-locations", "none", "-I", ".", "pendant", "host", "controller",
                       "link", "tools/tlcheck", "-ts", found});
        QVERIFY(lupdate.waitForFinished());
        QCOMPARE(lupdate.exitCode(), 0);

        const auto shipped = readTexts(SOURCE_FOLDER "/pendant/language/pendant_cn.ts");
        const auto wanted = readTexts(found);
        QVERIFY(wanted.size() > 50);
        QStringList missing;
        for (auto it = wanted.begin(); it != wanted.end(); ++it) {
            if (shipped.value(it.key()).isEmpty())
                missing.append(it.key());
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
    }
};

QTEST_GUILESS_MAIN(TestTranslation)
#include "tst_translation.moc"
