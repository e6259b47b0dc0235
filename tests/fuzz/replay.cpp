#include <QDirIterator>
#include <QFile>
#include <cstdio>

#include "fuzz.h"

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments);
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *bytes, size_t size);

/// Hands every file of a folder to the target once, where there is no libFuzzer.
int main(int count, char **arguments)
{
    LLVMFuzzerInitialize(&count, &arguments);
    int inputs = 0;
    for (QDirIterator files(QString::fromLocal8Bit(arguments[1]), QDir::Files); files.hasNext();
         ++inputs) {
        QFile file(files.next());
        require(file.open(QIODevice::ReadOnly), "a file can be read", file.fileName());
        std::printf("%s\n", qPrintable(file.fileName()));
        std::fflush(stdout); // if the target fails, the last name is the one
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char *>(bytes.constData()),
                               static_cast<size_t>(bytes.size()));
    }
    require(inputs > 0, "there is something to replay", QString::fromLocal8Bit(arguments[1]));
    return 0;
}
