#pragma once

#include <QPixmap>
#include <QString>

namespace vu::xtheme {

QPixmap pixmap(const QString &icon, const QString &color);

} // namespace vu::xtheme
