#include "vu/xtheme.h"

#include <QFileInfo>
#include <QPainter>
#include <QRegularExpression>

#include "kelp/jsonfile.h"

namespace vu::xtheme {

namespace {

Theme &instance()
{
    static Theme theme;
    return theme;
}

// A theme file from elsewhere may lack pictures.
const QString ownImages = QStringLiteral(":/tessa/theme/images/");

} // namespace

Theme Theme::load(const QString &path, QString *error)
{
    Theme theme;
    theme.m_tokens = kelp::readJsonFile(path, error).object();
    theme.m_images = QFileInfo(path).path() + QStringLiteral("/images/");
    if (theme.m_tokens.isEmpty() && error->isEmpty())
        *error = QStringLiteral("%1: holds no theme").arg(path);
    return theme;
}

QString Theme::name() const
{
    return m_tokens.value(QStringLiteral("name")).toString();
}

QString Theme::token(const QString &kind, const QString &key) const
{
    const QJsonValue value = m_tokens.value(kind).toObject().value(key);
    if (!value.isString())
        return {};
    return kind == QLatin1String("image") ? QStringLiteral("url(%1)").arg(imagePath(key))
                                          : value.toString();
}

QString Theme::imagePath(const QString &key) const
{
    const QString file = m_tokens.value(QStringLiteral("image")).toObject().value(key).toString();
    if (file.isEmpty())
        return {};
    const QString own = m_images + file;
    return QFileInfo::exists(own) ? own : ownImages + file;
}

QString Theme::resolve(const QString &text, QStringList *unknown) const
{
    static const QRegularExpression pattern(QStringLiteral("\\$([A-Za-z]+)\\$([A-Za-z0-9_./]+)"));
    QString result;
    int from = 0;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString value = token(match.captured(1), match.captured(2));
        if (value.isNull() && unknown)
            unknown->append(match.captured(0));
        result += text.midRef(from, match.capturedStart() - from) + value;
        from = match.capturedEnd();
    }
    return result + text.midRef(from);
}

QColor Theme::color(const QString &key) const
{
    const QString value = token(QStringLiteral("color"), key);
    return QColor(value.isNull() ? key : value);
}

void setCurrent(const Theme &theme)
{
    instance() = theme;
}

const Theme &current()
{
    return instance();
}

QPixmap pixmap(const QString &icon, const QString &color)
{
    QPixmap result(icon);
    if (result.isNull())
        return result;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(result.rect(), current().color(color));
    return result;
}

} // namespace vu::xtheme
