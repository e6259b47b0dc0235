#include "pendant/state/leveltext.h"

#include <QCoreApplication>

namespace welmo::pendant {

QStringList levelTexts()
{
    return {QCoreApplication::translate("Levels", "Viewer"),
            QCoreApplication::translate("Levels", "Operator"),
            QCoreApplication::translate("Levels", "Programmer"),
            QCoreApplication::translate("Levels", "Administrator")};
}

} // namespace welmo::pendant
