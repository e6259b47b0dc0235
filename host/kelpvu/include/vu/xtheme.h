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
    /// Reads a theme file; an unreadable one leaves an empty theme and a line in @p error.
    static Theme load(const QString &path, QString *error);

    QString name() const;
    /// The text of the token @p key of @p kind ("font", "color", "border", "image"); null when the
    /// theme does not know it. An image's token is the url() of its file.
    QString token(const QString &kind, const QString &key) const;
    /// Path of the image @p key: below "images" beside the theme file, else that of the host's own
    /// themes. Empty when the theme does not know it.
    QString imagePath(const QString &key) const;
    /// Replaces every token in @p text: the kind between two dollar signs and the key, of letters,
    /// digits and "_./". Tokens that the theme does not know are appended to @p unknown and become
    /// empty.
    QString resolve(const QString &text, QStringList *unknown = nullptr) const;
    /// A colour of the theme, else a colour that Qt knows by that name.
    QColor color(const QString &key) const;

private:
    QJsonObject m_tokens;
    QString m_images;
};

/// The theme in use; a host sets it before it shows anything.
void setCurrent(const Theme &theme);
const Theme &current();

/// The picture @p icon with every opaque pixel in @p color: a colour key of the theme ("black" and
/// "white" are its two icon inks, so that a dark theme may turn them round) or any colour name.
QPixmap pixmap(const QString &icon, const QString &color);

} // namespace vu::xtheme
