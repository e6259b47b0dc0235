#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <clocale>

namespace testsupport {

/// Makes the locale that LC_ALL names in a folder of its own, if the machine lacks it. Must exist
/// before the application, which reads the locale.
class Locale
{
public:
    Locale()
    {
        const QString name = qEnvironmentVariable("LC_ALL");
        if (std::setlocale(LC_ALL, ""))
            return;
        // This fails without the sources of locales, or for an unknown name.
        QProcess::execute("localedef",
                          {"-i", name.section('.', 0, 0), "-f", "UTF-8", m_folder.filePath(name)});
        qputenv("LOCPATH", m_folder.path().toLocal8Bit());
        std::setlocale(LC_ALL, "");
    }

private:
    QTemporaryDir m_folder;
};

} // namespace testsupport
