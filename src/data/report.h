#pragma once

#include <QObject>
#include <QString>

/// Everything that the module tells the user: one translated line in the pendant's message log. @p
/// sender is the page or form that reports, or null.
namespace welmo::report {

void error(const QObject *sender, const QString &text);
void warning(const QObject *sender, const QString &text);
void info(const QObject *sender, const QString &text);

/// Whether the link is up; if not, the error "tessa not connected" is reported. It has no sender,
/// since it concerns the link and not a page.
bool requireConnection();
/// The same in the words of the pages with files, "tessa is not connected", sent by @p sender.
bool requireConnection(const QObject *sender);
/// The text "tessa not connected", for reports that are not errors.
QString notConnected();

/// Reports that the file or set @p what could not be read; it is neither shown nor written.
void readFailed(const QObject *sender, const QString &what);

} // namespace welmo::report
