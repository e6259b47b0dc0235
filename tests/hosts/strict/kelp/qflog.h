#pragma once

#include <QString>

namespace kelp {

class QFLog
{
public:
    QFLog(const QString &, const QString &, const QString &, const QString &, const QString &);
    QFLog &operator<<(const QString &text);
};

} // namespace kelp
