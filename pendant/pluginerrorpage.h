#pragma once

#include "pendant/hostpage.h"

namespace pendant {

/// Stands where the welding package would be when its library cannot be used.
class PluginErrorPage : public HostPage
{
    Q_OBJECT
public:
    PluginErrorPage(const QString &path, const QString &reason, QWidget *parent = nullptr);
};

} // namespace pendant
