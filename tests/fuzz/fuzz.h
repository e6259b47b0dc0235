#pragma once

#include <QByteArray>
#include <QString>

/// What a target does with one input. Every input finds the same state, so that an input that fails
/// also fails alone.
void fuzz(const QByteArray &input);

/// Ends the run with a line about @p what and @p about unless @p holds.
void require(bool holds, const char *what, const QString &about = {});

/// The whole input as text; bytes that are no UTF-8 become replacement characters.
inline QString textOf(const QByteArray &input)
{
    return QString::fromUtf8(input.constData(), input.size());
}
