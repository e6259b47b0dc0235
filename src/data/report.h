#pragma once

#include <QObject>
#include <QString>

/// The only ways in which the module tells the user something: one line in the pendant's message
/// log, translated. @p sender is the page or form that reports, or null.
namespace welmo::report {

void error(const QObject *sender, const QString &text);
void warning(const QObject *sender, const QString &text);
void info(const QObject *sender, const QString &text);

} // namespace welmo::report
