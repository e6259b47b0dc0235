#pragma once

#include <QJsonObject>
#include <QString>

#include "book/plant/plantbook.h"
#include "tools/plantpage/sessions.h"
#include "tools/plantpage/watch.h"

/// What the page asks for. Each answer leaves out the cells that the viewer may not read. Times are
/// milliseconds since 1970, values have the units of the book.
namespace plantpage::content {

/// What is asked for: [from, until), and a cell, or all.
struct Question
{
    qint64 from = 0;
    qint64 until = 0;
    QString cell;
};

/// {user, problem, now, cells: [{name, there, changed, state, mode, program, line, current,
/// voltage, alarm: {code, arguments, time}}]}
QJsonObject plant(const Viewer &viewer, const Watch &watch);
/// {hours: {HOUR: COUNTS}, cells: {NAME: COUNTS}}, with the counts of seams by verdict, "seams",
/// "arcTime", "wire" and "gasTime"
QJsonObject sums(const Viewer &viewer, welmo::book::PlantBook &book, const Question &question);
/// {seams: [...]}, each with the columns of the book, newest first
QJsonObject seams(const Viewer &viewer, welmo::book::PlantBook &book, const Question &question);
/// The seam with its course: {..., rate, current: [...], voltage: [...]}; empty if there is none
QJsonObject seam(const Viewer &viewer, welmo::book::PlantBook &book, qint64 id);
/// {alarms: [...]}, newest first
QJsonObject alarms(const Viewer &viewer, welmo::book::PlantBook &book, const Question &question);
/// {changes: [...]}, newest first
QJsonObject changes(const Viewer &viewer, welmo::book::PlantBook &book, const Question &question);
/// The controllers' reasons, by code: {CODE: {en, zh}}
QJsonObject reasons();

} // namespace plantpage::content
