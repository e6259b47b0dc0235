#pragma once

#include <QString>
#include <QStringList>

namespace welmo::tlcheck {

/// What the command line asks for.
struct Options
{
    QStringList files;
    QString dataFolder; ///< the pendant's; empty: no names are looked up
    bool mayBeBuiltIn = false; ///< no folder was named: the built-in project will do
    bool fix = false;
    bool json = false;
    QString error; ///< one line when the arguments cannot be used
    QString help; ///< the help text when that was asked for
};

/// @p arguments includes the program's name.
Options parseOptions(const QStringList &arguments);

} // namespace welmo::tlcheck
