#pragma once

#include <QString>

namespace welmo::pendant {

// Keys of the pendant's own pages in the centre area.
inline const QString homeKey = QStringLiteral("pendant.home");
inline const QString programKey = QStringLiteral("pendant.program");
inline const QString jogKey = QStringLiteral("pendant.jog");
inline const QString messagesKey = QStringLiteral("pendant.messages");
inline const QString controllerKey = QStringLiteral("pendant.controller");
inline const QString arcCheckKey = QStringLiteral("pendant.arccheck");
inline const QString pluginErrorKey = QStringLiteral("pendant.plugin_error");

// The page of the arc-weld package, which locks itself while nothing may be changed.
inline const QString arcWeldKey = QStringLiteral("welmo.page");

// Groups of the navigation.
inline const QString mainGroup = QStringLiteral("pendant");
inline const QString packageGroup = QStringLiteral("robot.pack");
inline const QString systemGroup = QStringLiteral("system");

/// The heading of a navigation group; the group's own name if it has no heading.
QString groupTitle(const QString &group);

/// Adds a page of the pendant to the navigation. @p picture is a theme image; @p position counts in
/// the whole menu, -1 is its end.
void addNavEntry(const QString &page, const QString &title, const QString &group,
                 const QString &picture, int position);

} // namespace welmo::pendant
