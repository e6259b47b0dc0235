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

namespace pendant {

/// The font that the theme's token @p key describes, with a family that covers Chinese.
QFont themeFont(const vu::xtheme::Theme &theme, const QString &key);
/// The theme's colours for what no style rule reaches, such as the boxes of the platform.
QPalette themePalette(const vu::xtheme::Theme &theme);
/// Font and palette of the whole application from the theme in use.
void applyTheme();

/// The theme's one-ink picture @p key as an icon for a button that stands beside its text: ink on
/// the panel, light ink while checked. Its shape is navIconSize.
QIcon navIcon(const QString &key);
/// Wider than high: the right part is the distance to the text, which no style rule can set.
constexpr QSize navIconSize{34, 24};
/// The picture @p key of the theme as it is.
QPixmap themePixmap(const QString &key);

/// Sets the property @p name that style rules select by, and styles the widget anew.
void setStyleWord(QWidget *widget, const char *name, const QString &word);

} // namespace pendant
