#pragma once

#include <QString>

#include "pando/bmodule.h"

class QWidget;

namespace tessa {

/// A named page that is available while the cell has no fault, the operating mode is manual, the
/// power is on and the user level is operator or above.
class BasePage : public pando::BModule
{
    Q_OBJECT
public:
    /// @p owner is the QObject parent until the host owns the page as a sub-module.
    BasePage(const QString &name, const QString &title, QObject *owner);

    QString name() const override;
    QString title() const;

    bool isAvailable() const;
    /// Called when one of the followed conditions changed; the base does nothing.
    virtual void updateAvailability();

protected:
    /// Sets for which conditions the host calls updateAvailability().
    void autoUpdate(bool state, bool mode, bool power, bool level);

private:
    QString m_name;
    QString m_title;
};

} // namespace tessa
