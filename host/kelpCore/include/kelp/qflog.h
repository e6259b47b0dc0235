#pragma once

#include <QFile>
#include <QString>

namespace kelp {

/// One line of the host's file-and-console log: items are separated by one blank, and the line ends
/// with the object's lifetime.
class QFLog
{
public:
    /// @p colour is a terminal escape for the console, @p tag begins the line, @p category and @p
    /// context follow it unless empty. @p file is the log file; a relative name starts at the
    /// host's data folder. If it cannot be opened, only the console is written to.
    QFLog(const QString &colour, const QString &tag, const QString &file, const QString &category,
          const QString &context = QString());
    ~QFLog();
    QFLog(const QFLog &) = delete;
    QFLog &operator=(const QFLog &) = delete;

    /// Appends to the current line.
    QFLog &operator<<(const QString &text);

private:
    QString m_colour;
    QString m_tag;
    QString m_line;
    QFile m_device;
};

} // namespace kelp
