#pragma once

#include <QString>
#include <QStringList>

namespace welmo::tlcheck {

/// The command line's options.
struct Options
{
    QStringList files;
    QString dataFolder; ///< the pendant's; empty: names are not looked up
    bool mayBeBuiltIn = false; ///< no folder was named: the built-in project may be used
    bool fix = false;
    bool json = false;
    QString error; ///< one line, if the arguments cannot be used
    QString help; ///< the help text, if it was asked for
};

/// @p arguments includes the program's name.
Options parseOptions(const QStringList &arguments);

} // namespace welmo::tlcheck
