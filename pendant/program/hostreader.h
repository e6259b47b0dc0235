#pragma once

#include <QHash>

#include "controller/core/reader.h"

namespace welmo::pendant {

/// The controller's values as the pendant knows them: the robot project from the host's tree, and
/// the parameter files from the controller, which is asked once for each set.
class HostReader : public controller::Reader
{
public:
    controller::Reply load(const QString &path, const QString &key = {},
                           const QVariant &fallback = {}) const override;

private:
    mutable QHash<QString, QVariant> m_read;
};

} // namespace welmo::pendant
