#pragma once

#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QSize>
#include <QString>

class QWidget;

namespace vu::xtheme {
class Theme;
}

namespace welmo::pendant {

/// The font of the theme's token @p key, with a family that covers Chinese.
QFont themeFont(const vu::xtheme::Theme &theme, const QString &key);
/// The theme's colours for what style rules do not reach, such as the platform's dialogs.
QPalette themePalette(const vu::xtheme::Theme &theme);
/// False if the theme lacks colours or fonts without which nothing can be read.
bool isUsable(const vu::xtheme::Theme &theme);
/// Sets the whole application's font and palette to those of the theme in use.
void applyTheme();

/// The size of an icon beside a text: its right part is the distance to the text, which style rules
/// cannot set.
constexpr QSize besideTextSize{34, 24};
/// @p picture as an icon of that size.
QIcon besideText(const QPixmap &picture);
/// The theme's one-colour picture @p key as an icon of that size, light while checked.
QIcon inkBesideText(const QString &key);
/// The theme's one-colour picture @p key in the colours of an enabled and of a disabled button; @p
/// ink replaces the first on a button with another background.
QIcon inkIcon(const QString &key, const QString &ink = QStringLiteral("text"));
/// The picture @p key of the theme as it is.
QPixmap themePixmap(const QString &key);

/// Sets the property @p name, which style rules select by, and applies them to the widget again.
void setStyleWord(QWidget *widget, const char *name, const QString &word);

} // namespace welmo::pendant
