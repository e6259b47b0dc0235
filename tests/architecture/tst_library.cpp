#include <QFile>
#include <QLibrary>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <cstdio>
#include <cstdlib>
#include <cxxabi.h>

namespace {

// The one of this build, or another that is to be held to the same.
const QString module = qEnvironmentVariable("WELMO_MODULE", WELMO_MODULE);

QStringList readElf(const QString &option, const QString &pattern, const QString &file = module)
{
    // By the shell: unlike QProcess, popen() works under emulation as well.
    const QString command = QStringLiteral(READELF " --wide %1 '%2'").arg(option, file);
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

QString readable(const QString &symbol)
{
    int status = 0;
    char *text = abi::__cxa_demangle(qPrintable(symbol), nullptr, nullptr, &status);
    const QString name = status == 0 ? QString::fromLatin1(text) : symbol;
    ::free(text);
    return name;
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
    // Another host has these, or a way to them: what is new here is a new demand on every host.
    void itAsksOfTheHostOnlyWhatIsListed()
    {
        QFile file(IMPORTS);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList listed = QString::fromUtf8(file.readAll()).split('\n');
        const QStringList wanted = readElf("--dyn-syms", R"( UND (\S+)$)");
        QSet<QString> offered;
        for (const QString &library : QString(HOST_LIBRARIES).split(' ')) {
            for (const QString &symbol : readElf("--dyn-syms", R"( \d+ (\S+)$)", library))
                offered.insert(symbol);
        }
        QStringList others;
        for (const QString &symbol : wanted) {
            const QString name = readable(symbol);
            const bool isType = name.startsWith("typeinfo") || name.startsWith("vtable");
            const bool isHosts = offered.contains(symbol) && !(SANITIZED && isType);
            if (isHosts && !listed.contains(name))
                others.append(name);
        }
        QVERIFY(wanted.size() > 100 && offered.size() > 100);
        QCOMPARE(others.join('\n'), QString());
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
