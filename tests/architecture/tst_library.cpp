#include <QFile>
#include <QLibrary>
#include <QRegularExpression>
#include <QtTest>
#include <cstdio>

namespace {

// The one of this build, or another that is to be held to the same.
const QString module = qEnvironmentVariable("WELMO_MODULE", WELMO_MODULE);

QStringList readElf(const QString &option, const QString &pattern)
{
    // By the shell: unlike QProcess, popen() works under emulation as well.
    const QString command = QStringLiteral(READELF " --wide %1 '%2'").arg(option, module);
    FILE *pipe = ::popen(qPrintable(command), "r");
    QFile output;
    const bool opened = pipe && output.open(pipe, QIODevice::ReadOnly);
    const QString text = opened ? QString::fromLocal8Bit(output.readAll()) : QString();
    if (!pipe || ::pclose(pipe) != 0)
        return {"fails: " + command};
    QStringList found;
    auto matches =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    found.sort();
    return found;
}

} // namespace

/// The library as the host gets it: what it needs, and that it keeps its own names to itself.
class tst_Library : public QObject
{
    Q_OBJECT

private slots:
    void itNeedsQtTheHostAndTheRuntimeOnly()
    {
        QString known =
            R"(^(libQt5(Core|Gui|Widgets)|libstdc\+\+|libm|libc|libgcc_s|ld-linux-.*)\.so)";
        if (SANITIZED)
            known += "|^lib(asan|ubsan|tsan|lsan)\\.so";
        QStringList others;
        for (const QString &library : readElf("--dynamic", R"(\(NEEDED\).*\[(.*)\]$)")) {
            if (!QRegularExpression(known).match(library).hasMatch())
                others.append(library);
        }
        QCOMPARE(others.join(' '),
                 QString("libkelpCore.so libkelpPando.so libkelpvu.so libtessa.so"));
    }
    void itFindsThereWhatItNeeds()
    {
        QLibrary library(module);
        library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
        QVERIFY2(library.load(), qPrintable(library.errorString()));
    }
    void itExportsNothing()
    {
        // Weak names are instances of others' templates, the plain ones the linker's own.
        const QString own =
            R"(GLOBAL +\w+ +\d+ (?!_+(?:init|fini|end|edata|bss_start|bss_end)_*$)(\S+)$)";
        QCOMPARE(readElf("--dyn-syms", own).join(' '), QString());
    }
};

QTEST_MAIN(tst_Library)
#include "tst_library.moc"
