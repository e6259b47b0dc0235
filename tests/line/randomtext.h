#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

/// Pieces that matter to the grammar, in random order: near misses of program lines.
inline QString randomLine(QRandomGenerator &random, int pieces)
{
    static const QStringList parts =
        QStringLiteral("ArcOn ArcOff WMoveL WMoveC WeaveOn WeaveOff FeedOnWire FeedBackWire "
                       "DetectGas SegOn SegOff Offs RelTool Reltool p1 v10 fine tool0 "
                       "\"arcondata1\" \"arcdata40\" \"weavedata7\" \" \" , , ( ) () -5.5 1e3 "
                       "nan ; _ \\ \t \r é 点")
            .split(' ')
        + QStringList{" ", " ", QChar(0), QChar(0xD800), QChar(0x2028)};
    QString line;
    for (int i = 0; i < pieces; ++i)
        line += parts.at(random.bounded(parts.size()));
    return line;
}
