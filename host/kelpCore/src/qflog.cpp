#include "kelp/qflog.h"

#include <QDir>
#include <QFileInfo>
#include <cstdio>

#include "kelp/workspace.h"

namespace kelp {

QFLog::QFLog(const QString &colour, const QString &tag, const QString &file,
             const QString &category, const QString &context)
    : m_colour(colour)
    , m_tag(tag)
{
    for (const QString &item : {category, context}) {
        if (!item.isEmpty())
            *this << item;
    }
    const QDir base(Workspace::current() ? Workspace::current()->dataFolder() : QString());
    const QString path = QDir::cleanPath(base.absoluteFilePath(file));
    QDir().mkpath(QFileInfo(path).path());
    m_device.setFileName(path);
    m_device.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
}

QFLog::~QFLog()
{
    const QByteArray line = QString(m_tag + QLatin1Char(' ') + m_line).toUtf8();
    std::fprintf(stderr, "%s%s\033[0m\n", qPrintable(m_colour), line.constData());
    if (m_device.isOpen())
        m_device.write(line + '\n');
}

QFLog &QFLog::operator<<(const QString &text)
{
    if (!m_line.isEmpty())
        m_line += QLatin1Char(' ');
    m_line += text;
    return *this;
}

} // namespace kelp
