#include "tour/pages.h"

#include <QToolButton>

#include "support/testpendant.h"

namespace tour {

void openSubPage(testsupport::TestPendant &pendant, const QString &title)
{
    pendant.open("arcweldpackage");
    for (auto *button : pendant.find("wgtNav")->findChildren<QToolButton *>()) {
        if (button->text() == title)
            return testsupport::finger::touch(button);
    }
    throw testsupport::OutOfReach("there is no sub-page " + title);
}

} // namespace tour
