#pragma once

#include <QByteArray>
#include <QString>

/// What a target does with one input. Each starts from the same state, so that one that fails does
/// so by itself as well.
void fuzz(const QByteArray &input);

/// Ends the run with a line that says so when something does not hold that must hold for every
/// input.
void require(bool holds, const char *what, const QString &about = {});

/// The input as text, bytes that are no UTF-8 as replacement characters; a NUL ends nothing.
inline QString textOf(const QByteArray &input)
{
    return QString::fromUtf8(input.constData(), input.size());
}
