#pragma once

#include <QObject>
#include <QString>

/// The only ways in which the module tells the user something: one line in the pendant's message
/// log, translated. @p sender is the page or form that reports, or null.
namespace welmo::report {

void error(const QObject *sender, const QString &text);
void warning(const QObject *sender, const QString &text);
void info(const QObject *sender, const QString &text);

/// Whether the link is up; where it is not, an error says "tessa not connected". Nobody is named as
/// its sender: it is about the link, not about a page.
bool requireConnection();
/// The same in the words of the pages with files, "tessa is not connected", sent by @p sender.
bool requireConnection(const QObject *sender);
/// The text "tessa not connected", where another level than an error is asked for.
QString notConnected();

/// The file or set @p what could not be read, so nothing of it is shown or written.
void readFailed(const QObject *sender, const QString &what);

} // namespace welmo::report
