#pragma once

#include <memory>

#include "settings/processgroup.h"

namespace welmo {

namespace Ui {
class ArcoffGroup;
}

/// The editor of one arc-end file.
class ArcoffGroup : public ProcessGroup
{
    Q_OBJECT
public:
    explicit ArcoffGroup(QWidget *parent = nullptr);
    ~ArcoffGroup() override;

    void handleSwitchVoltageMode(int mode) override;

protected:
    void bindFields(FieldTable &fields) override;
    void voltageUnitChanged(const QString &unit) override;

private:
    std::unique_ptr<Ui::ArcoffGroup> ui;
};

} // namespace welmo
