#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace welmo::book {

/// What SQLite and PostgreSQL want to be told in different words; all other statements suit both.
struct Dialect
{
    QString driver; ///< Qt's name
    QVector<QPair<QString, QString>> types; ///< words of a declaration and what they become
    QString tables; ///< how many there are
    QString isMarked; ///< not 0 if the database says whose it is
    QString application; ///< whose it says it is
    QString version; ///< of its tables
    QString lock; ///< begins to make the tables of application %1, which nobody else does then
    QStringList mark; ///< ends that, with the application %1 and the version %2
    QStringList reading; ///< for a connection that must not write
    QStringList writing; ///< for one that may

    static const Dialect &sqlite();
    static const Dialect &postgresql();

    /// A declaration, which is written in SQLite's words.
    QString declared(QString declaration) const;
};

} // namespace welmo::book
