#include "widgets/stylerules.h"

#include <QString>

#include <tessa/managerhelper.h>
#include <vu/stylesheet.h>

#include "adapter/hostadapter.h"

namespace welmo {

void applyStyleRules(QWidget *top)
{
    auto *theme = host::themeManager();
    setRecursiveWidgetStyleSheet(
        top, theme->genStyleSheet(QStringLiteral(":/welmo/render/sub_page.json")));
}

} // namespace welmo
