#pragma once

#include <QHash>

#include "controller/core/reader.h"

namespace welmo::pendant {

/// The controller's values as the pendant knows them: the robot project in the host's tree, the
/// parameter files as the controller answers, each set asked for once.
class HostReader : public controller::Reader
{
public:
    controller::Reply load(const QString &path, const QString &key = {},
                           const QVariant &fallback = {}) const override;

private:
    mutable QHash<QString, QVariant> m_read;
};

} // namespace welmo::pendant
