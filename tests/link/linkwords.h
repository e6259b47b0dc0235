#pragma once

#include <QVariant>

#include "tessa/controllerlink.h"

using tessa::LinkReply;
using tessa::LinkRequest;
using Kind = LinkRequest::Kind;

constexpr int patient = 60000; // ms; no healthy call takes that long
constexpr int impatient = 20;

const QString modeNode = QStringLiteral("arc_weld.weld_mode");
const QString setMode = QStringLiteral("arc_weld.set_weld_mode");
const QString arcOn = QStringLiteral("arc_weld.arcon_param");

inline QVariantMap mode(const char *name)
{
    return {{QStringLiteral("mode"), QString::fromLatin1(name)}};
}

inline QString fileName(int number)
{
    return QStringLiteral("arcondata%1").arg(number);
}

inline QVariantMap file(int number, double current)
{
    return {{QStringLiteral("name"), fileName(number)}, {QStringLiteral("current"), current}};
}
