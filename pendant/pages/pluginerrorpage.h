#pragma once

#include "pendant/pages/hostpage.h"

namespace welmo::pendant {

/// Stands where the welding package would be when its library cannot be used.
class PluginErrorPage : public HostPage
{
    Q_OBJECT
public:
    PluginErrorPage(const QString &path, const QString &reason, QWidget *parent = nullptr);
};

} // namespace welmo::pendant
