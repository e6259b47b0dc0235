#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

/// Pieces that matter to the grammar, in random order: near misses of program lines.
inline QString randomLine(QRandomGenerator &random, int pieces)
{
    static const QStringList parts{"ArcOn",
                                   "ArcOff",
                                   "WMoveL",
                                   "WMoveC",
                                   "WeaveOn",
                                   "WeaveOff",
                                   "FeedOnWire",
                                   "DetectGas",
                                   "FeedBackWire",
                                   "SegOn",
                                   "SegOff",
                                   "Offs",
                                   "RelTool",
                                   "Reltool",
                                   "p1",
                                   "v10",
                                   "fine",
                                   "tool0",
                                   "\"arcondata1\"",
                                   "\"arcdata40\"",
                                   "\"weavedata7\"",
                                   "\"",
                                   " ",
                                   ",",
                                   "(",
                                   ")",
                                   "()",
                                   "-5.5",
                                   "1e3",
                                   "nan",
                                   ";",
                                   "\t",
                                   "\r",
                                   QString(QChar(0)),
                                   "é",
                                   "点",
                                   QString(QChar(0xD800)),
                                   QString(QChar(0x2028)),
                                   "_",
                                   "\\",
                                   " ",
                                   ","};
    QString line;
    for (int i = 0; i < pieces; ++i)
        line += parts.at(random.bounded(parts.size()));
    return line;
}
