#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace welmo::tl {

/// What a robot project offers to its programs, by name.
struct ProjectNames
{
    /// The tool and the work object with which a point was taught; empty where that is not known.
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
    /// False when nobody can tell which files there are; nothing is said about them then.
    bool knowsFiles = true;
    /// Instruction words that the host or another package brought.
    QSet<QString> words;
};

} // namespace welmo::tl
