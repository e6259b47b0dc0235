#pragma once

#include <QtGlobal>

namespace testsupport {

/// While it lives, a qWarning or qCritical ends the test. The first that goes ends it for all.
class LogGuard
{
public:
    LogGuard();
    ~LogGuard();
    Q_DISABLE_COPY(LogGuard)
};

} // namespace testsupport
