#pragma once

#include <pando/bmodule.h>

namespace tessa {

class BasePage : public pando::BModule
{
    Q_OBJECT
public:
    BasePage(const QString &name, const QString &title, QObject *owner);
    bool isAvailable() const;
    virtual void updateAvailability();

protected:
    void autoUpdate(bool state, bool mode, bool power, bool level);
};

} // namespace tessa
