#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace welmo::tl {

/// The names that programs can use of a robot project.
struct ProjectNames
{
    /// The tool and the work object with which a point was taught; empty if unknown.
    struct Taught
    {
        QString tool;
        QString wobj;
    };

    QHash<QString, Taught> points;
    QSet<QString> speeds;
    QSet<QString> zones;
    QSet<QString> tools;
    QSet<QString> wobjs;
    /// The parameter files that the controller holds.
    QSet<QString> files;
    /// false if the existing files are unknown; file names are not checked then
    bool knowsFiles = true;
    /// Instruction words that the host or another package registered.
    QSet<QString> words;
};

} // namespace welmo::tl
