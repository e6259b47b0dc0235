#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <clocale>

namespace testsupport {

/// The locale that LC_ALL names, made in a folder of its own where the machine lacks it. To be made
/// before the application, which reads it.
class Locale
{
public:
    Locale()
    {
        const QString name = qEnvironmentVariable("LC_ALL");
        if (std::setlocale(LC_ALL, ""))
            return;
        // Without the sources, or for a name without one, there is none.
        QProcess::execute("localedef",
                          {"-i", name.section('.', 0, 0), "-f", "UTF-8", m_folder.filePath(name)});
        qputenv("LOCPATH", m_folder.path().toLocal8Bit());
        std::setlocale(LC_ALL, "");
    }

private:
    QTemporaryDir m_folder;
};

} // namespace testsupport
