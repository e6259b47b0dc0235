#pragma once

#include <QObject>
#include <QString>

/// The only ways in which the module tells the user something: one line in the pendant's message
/// log, translated. @p sender is the page or form that reports, or null.
namespace welmo::report {

void error(const QObject *sender, const QString &text);
void warning(const QObject *sender, const QString &text);
void info(const QObject *sender, const QString &text);

/// The file or set @p what could not be read, so nothing of it is shown or written.
void readFailed(const QObject *sender, const QString &what);

} // namespace welmo::report
