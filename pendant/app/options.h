#pragma once

#include <QString>
#include <QStringList>

namespace welmo::pendant {

/// What the command line asks for. An empty language or theme means "as chosen before".
struct Options
{
    QString language; ///< "en" or "zh_CN"
    QString theme; ///< "light", "dark" or the path of a theme file
    QString dataFolder; ///< where everything that outlives a run is kept
    QString modulePath; ///< the library that is loaded as the welding package
    /// A cell on the network as links::parseAddress() takes it; empty: one in this process.
    QString controller = {};
    bool isEmpty = false; ///< a controller in this process starts without the example's files
    QString bookPath = {}; ///< the library with the weld book; empty: without one
};

struct ParsedOptions
{
    Options options;
    QString error; ///< one line when the arguments cannot be used
    QString help; ///< what to print when the help or the version was asked for
};

/// Of this program.
QString pendantVersion();

/// @p arguments includes the program's name. Paths that were not given get their defaults.
ParsedOptions parseOptions(const QStringList &arguments);

} // namespace welmo::pendant
