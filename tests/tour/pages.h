#pragma once

#include <QString>

namespace testsupport {
class TestPendant;
}

namespace tour {

/// Opens the package and its sub-page whose navigation button says @p title.
void openSubPage(testsupport::TestPendant &pendant, const QString &title);

} // namespace tour
