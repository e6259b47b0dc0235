#include <QtTest>
#include <cstdio>
#include <cstdlib>
#include <cxxabi.h>

#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;

namespace {

// The libraries of this build, or those that the environment names.
void libraries()
{
    // what only one of them needs
    addRows<QString, QString>({{"package", qEnvironmentVariable("WELMO_MODULE", WELMO_MODULE), ""},
                               {"weld book", qEnvironmentVariable("WELMO_BOOK", WELMO_BOOK),
                                "libQt5Sql.so.5 libqwt-qt5.so.6 "}});
}

QStringList readElf(const QString &file, const QString &option, const QString &pattern)
{
    // QProcess does not work under emulation, popen() does.
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

/// The shipped libraries: which others they need, and that they export nothing.
class tst_Library : public QObject
{
    Q_OBJECT

private slots:
    void itNeedsQtTheHostAndTheRuntimeOnly_data() { libraries(); }
    void itNeedsQtTheHostAndTheRuntimeOnly()
    {
        const auto &[name, module, needs] = currentRow<QString, QString>();
        static const QRegularExpression known(
            QString(SANITIZED ? "^lib(asan|ubsan|tsan|lsan)\\.so|" : "")
            + R"(^(libQt5(Core|Gui|Widgets)|libstdc\+\+|libm|libc|libgcc_s|ld-linux-.*)\.so)");
        QStringList others;
        for (const QString &library : readElf(module, "--dynamic", R"(\(NEEDED\).*\[(.*)\]$)")) {
            if (!known.match(library).hasMatch())
                others.append(library);
        }
        QStringList expected =
            (needs + "libkelpCore.so libkelpPando.so libkelpvu.so libtessa.so").split(' ');
        expected.sort();
        QCOMPARE(others, expected);
    }
    void itFindsThereWhatItNeeds_data() { libraries(); }
    void itFindsThereWhatItNeeds()
    {
        const QString module = std::get<1>(currentRow<QString, QString>());
        QLibrary library(module);
        library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
        QVERIFY2(library.load(), qPrintable(library.errorString()));
    }
    // Every host has the listed names; a new one would be a new demand on all hosts.
    void itAsksOfTheHostOnlyWhatIsListed()
    {
        const QString package = qEnvironmentVariable("WELMO_MODULE", WELMO_MODULE);
        const QStringList listed = QString::fromUtf8(contentOf(IMPORTS)).split('\n');
        const QStringList wanted = readElf(package, "--dyn-syms", R"( UND (\S+)$)");
        QSet<QString> offered;
        for (const QString &library : QString(HOST_LIBRARIES).split(' ')) {
            for (const QString &symbol : readElf(library, "--dyn-syms", R"( \d+ (\S+)$)"))
                offered.insert(symbol);
        }
        static const QRegularExpression type("^(typeinfo|vtable)");
        QStringList others;
        for (const QString &symbol : wanted) {
            const QString name = readable(symbol);
            const bool isMadeBySanitizer = SANITIZED && type.match(name).hasMatch();
            if (offered.contains(symbol) && !isMadeBySanitizer && !listed.contains(name))
                others.append(name);
        }
        QVERIFY(wanted.size() > 100 && offered.size() > 100);
        QCOMPARE(others.join('\n'), QString());
    }
    void itExportsNothing_data() { libraries(); }
    void itExportsNothing()
    {
        const QString module = std::get<1>(currentRow<QString, QString>());
        // Weak names are instances of templates, and the excepted ones come from the linker. A
        // unique name would keep the library from being unloaded.
        const QString own =
            R"((?:GLOBAL|UNIQUE) +\w+ +\d+ (?!_+(?:init|fini|end|edata|bss_start|bss_end)_*$)(\S+)$)";
        QCOMPARE(readElf(module, "--dyn-syms", own).join(' '), QString());
    }
};

QTEST_MAIN(tst_Library)
#include "tst_library.moc"
