#pragma once

#include <QColor>
#include <QJsonObject>
#include <QPixmap>
#include <QString>

namespace vu::xtheme {

/// The tokens of one theme file: fonts, colours, borders and images by key.
class Theme
{
public:
    /// Reads a theme file; an unreadable one gives an empty theme and a line in @p error.
    static Theme load(const QString &path, QString *error);

    QString name() const;
    /// The text of the token @p key of @p kind ("font", "color", "border", "image"); null if the
    /// theme lacks it. An image's token is the url() of its file.
    QString token(const QString &kind, const QString &key) const;
    /// The path of the image @p key: in "images" beside the theme file, else among the host's own
    /// themes. Empty if it is in neither.
    QString imagePath(const QString &key) const;
    /// Replaces every token in @p text: the kind between two dollar signs and the key, of letters,
    /// digits and "_./". Unknown tokens are appended to @p unknown and replaced by nothing.
    QString resolve(const QString &text, QStringList *unknown = nullptr) const;
    /// A colour of the theme, else the colour that Qt has by that name.
    QColor color(const QString &key) const;

private:
    QJsonObject m_tokens;
    QString m_images;
};

/// Sets the theme in use; a host does so before it shows anything.
void setCurrent(const Theme &theme);
const Theme &current();

/// The picture @p icon with every opaque pixel in @p color: a colour key of the theme or any colour
/// name. "black" and "white" are keys too, the theme's two icon colours, which a dark theme may
/// swap.
QPixmap pixmap(const QString &icon, const QString &color);

} // namespace vu::xtheme
