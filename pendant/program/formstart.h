#pragma once

#include <QString>

class QWidget;

namespace welmo::pendant {

class ProgramDocument;

/// The line before @p line from which an insert form of the instruction @p word may start: the last
/// of the same instruction, else the last move where the word is one; null when there is none.
QString lineToStartFrom(const ProgramDocument &document, const QString &word, int line);

/// Chooses in the form's boxes what the line names, as far as they offer it.
void startFrom(QWidget *form, const QString &line);

/// What the controller holds in the files that the form's boxes name, one line each.
QString filesNamedIn(const QWidget *form);

} // namespace welmo::pendant
