#include "widgets/stylerules.h"

#include <QLocale>
#include <QString>
#include <QWidget>

#include <tessa/managerhelper.h>
#include <vu/stylesheet.h>

#include "adapter/hostadapter.h"

namespace welmo {

void applyStyleRules(QWidget *top)
{
    // Without this, the decimal point would depend on the language of the host's environment.
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    top->setLocale(plain);
    auto *theme = host::themeManager();
    setRecursiveWidgetStyleSheet(
        top, theme->genStyleSheet(QStringLiteral(":/welmo/render/sub_page.json")));
}

} // namespace welmo
