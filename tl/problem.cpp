#include "tl/problem.h"

#include <QCoreApplication>

namespace welmo::tl {

QString shown(const char *message)
{
    return QCoreApplication::translate("ProgramLine", message);
}

namespace messages {

const char *const arconData = QT_TRANSLATE_NOOP("ProgramLine", "arcondata format error");
const char *const arcData = QT_TRANSLATE_NOOP("ProgramLine", "arcdata format error");
const char *const arcoffData = QT_TRANSLATE_NOOP("ProgramLine", "arcoffdata format error");
const char *const weaveData = QT_TRANSLATE_NOOP("ProgramLine", "weavedata format error");
const char *const segData = QT_TRANSLATE_NOOP("ProgramLine", "segdata format error");
const char *const speed = QT_TRANSLATE_NOOP("ProgramLine", "speed format error");
const char *const zone = QT_TRANSLATE_NOOP("ProgramLine", "zone format error");
const char *const tool = QT_TRANSLATE_NOOP("ProgramLine", "tool format error");
const char *const point = QT_TRANSLATE_NOOP("ProgramLine", "point format error");
const char *const wobj = QT_TRANSLATE_NOOP("ProgramLine", "wobj format error");

} // namespace messages

} // namespace welmo::tl
