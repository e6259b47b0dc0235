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

/// The font that the theme's token @p key describes, with a family that covers Chinese.
QFont themeFont(const vu::xtheme::Theme &theme, const QString &key);
/// The theme's colours for what no style rule reaches, such as the boxes of the platform.
QPalette themePalette(const vu::xtheme::Theme &theme);
/// False when the theme lacks what it takes to read anything at all.
bool isUsable(const vu::xtheme::Theme &theme);
/// Font and palette of the whole application from the theme in use.
void applyTheme();

/// The size of an icon beside a text: the right part is the distance between the two, which no
/// style rule can set.
constexpr QSize besideTextSize{34, 24};
/// @p picture as an icon of that size.
QIcon besideText(const QPixmap &picture);
/// The theme's one-ink picture @p key as an icon of that size, in light ink while checked.
QIcon inkBesideText(const QString &key);
/// The theme's one-ink picture @p key, in the inks of a usable and of a disabled button, and in
/// @p ink where the button has another ground.
QIcon inkIcon(const QString &key, const QString &ink = QStringLiteral("text"));
/// The picture @p key of the theme as it is.
QPixmap themePixmap(const QString &key);

/// Sets the property @p name that style rules select by, and styles the widget anew.
void setStyleWord(QWidget *widget, const char *name, const QString &word);

} // namespace welmo::pendant
