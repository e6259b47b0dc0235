#include "widgets/stylerules.h"

#include <QString>

#include <tessa/managerhelper.h>
#include <vu/stylesheet.h>

namespace welmo {

void applyStyleRules(QWidget *top)
{
    auto *theme = tessa::ManagerHelper::instance()->themeManager();
    setRecursiveWidgetStyleSheet(
        top, theme->genStyleSheet(QStringLiteral(":/welmo/render/sub_page.json")));
}

} // namespace welmo
