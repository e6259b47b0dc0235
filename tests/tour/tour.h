#pragma once

#include <QString>
#include <functional>

#include "support/testpendant.h"

namespace tour {

/// One walk through the pendant: runs steps, tells each in one line, takes pictures on the way.
class Tour
{
public:
    explicit Tour(const QString &pictureFolder);

    testsupport::TestPendant &pendant() { return m_pendant; }

    /// Runs @p act, which answers what was seen, and prints "ok" or "FAILED" with it. A step that
    /// throws has failed; the walk goes on.
    void step(const QString &what, const std::function<QString()> &act);
    /// Ends the running step as failed when @p seen is not @p wanted; answers @p seen.
    static QString require(const QString &seen, const QString &wanted);
    /// A picture of the window as it is, numbered in the order of the walk.
    void picture(const QString &name);

    int failures() const { return m_failures; }

private:
    void tell(bool ok, const QString &what, const QString &seen);

    QString m_folder;
    testsupport::TestPendant m_pendant;
    int m_pictures = 0;
    int m_failures = 0;
};

} // namespace tour
