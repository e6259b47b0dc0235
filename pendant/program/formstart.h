#pragma once

#include <QString>

class QWidget;

namespace welmo::pendant {

class ProgramDocument;

/// The line above @p line whose names an insert form of @p word may start with: the last one of the
/// same instruction or, for a move, the last move; null if there is none.
QString lineToStartFrom(const ProgramDocument &document, const QString &word, int line);

/// Selects in the form's boxes what the line names, where they offer it.
void startFrom(QWidget *form, const QString &line);

/// The content of the files that the form's boxes name, one line each.
QString filesNamedIn(const QWidget *form);

} // namespace welmo::pendant
