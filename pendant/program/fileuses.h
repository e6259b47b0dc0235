#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>

#include "tl/parsedline.h"

namespace welmo::pendant {

/// The parameter files that a program names, and its words that look like a misspelt instruction.
class FileUses
{
public:
    /// One name in a program.
    struct Use
    {
        QString name; ///< a file, or a word that is no instruction
        QVector<int> lines; ///< counted from 0
        QString meant; ///< the instruction that the word resembles; empty for a file
    };

    /// Adds a line's names; @p number is counted from 0.
    void add(const tl::ParsedLine &line, int number);
    /// In the order in which the program first names them.
    const QVector<Use> &all() const { return m_uses; }

private:
    void add(const QString &name, int number, const QString &meant = {});

    QVector<Use> m_uses;
    QHash<QString, int> m_places; // index in m_uses by name
};

} // namespace welmo::pendant
