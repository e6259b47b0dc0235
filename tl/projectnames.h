#pragma once

#include <QSet>
#include <QString>

namespace welmo::tl {

/// What a robot project offers to its programs, by name.
struct ProjectNames
{
    QSet<QString> points;
    QSet<QString> speeds;
    QSet<QString> zones;
    QSet<QString> tools;
    QSet<QString> wobjs;
    /// The parameter files that the controller holds. A set of which it holds none has not been
    /// set up yet, so nothing is said about the set's files.
    QSet<QString> files;
};

} // namespace welmo::tl
