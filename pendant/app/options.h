#pragma once

#include <QString>
#include <QStringList>

namespace welmo::pendant {

/// The command line's options. An empty language or theme means the one that the operator chose
/// last.
struct Options
{
    QString language; ///< "en" or "zh_CN"
    QString theme; ///< "light", "dark" or the path of a theme file
    QString dataFolder; ///< the folder of all data that is kept between runs
    QString modulePath; ///< the library of the welding package
    /// A cell's address, see links::parseAddress(); empty for a controller in this process.
    QString controller = {};
    bool isEmpty = false; ///< a controller in this process starts without the example's files
    QString bookPath = {}; ///< the weld book's library; empty for none
};

struct ParsedOptions
{
    Options options;
    QString error; ///< one line, if the arguments cannot be used
    QString help; ///< what to print if help or version was asked for
};

/// The pendant's version.
QString pendantVersion();

/// @p arguments includes the program's name. Paths that were not given get their defaults.
ParsedOptions parseOptions(const QStringList &arguments);

} // namespace welmo::pendant
