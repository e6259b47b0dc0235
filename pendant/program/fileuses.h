#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>

#include "tl/parsedline.h"

namespace welmo::pendant {

/// The parameter files that a program names, and the words in it that are nearly an instruction.
class FileUses
{
public:
    /// What a program names.
    struct Use
    {
        QString name; ///< a file, or a word that is none
        QVector<int> lines; ///< counted from 0
        QString meant; ///< the instruction that the word is close to; empty for a file
    };

    /// Takes a line's names; @p number is counted from 0.
    void add(const tl::ParsedLine &line, int number);
    /// In the order in which the program names them.
    const QVector<Use> &all() const { return m_uses; }

private:
    void add(const QString &name, int number, const QString &meant = {});

    QVector<Use> m_uses;
    QHash<QString, int> m_places; // in m_uses
};

} // namespace welmo::pendant
