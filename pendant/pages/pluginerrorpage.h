#pragma once

#include "pendant/pages/hostpage.h"

namespace welmo::pendant {

/// Shown in place of the welding package if its library cannot be used.
class PluginErrorPage : public HostPage
{
    Q_OBJECT
public:
    PluginErrorPage(const QString &path, const QString &reason, QWidget *parent = nullptr);
};

} // namespace welmo::pendant
