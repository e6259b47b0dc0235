#pragma once

#include <memory>

#include "settings/processgroup.h"

namespace welmo {

namespace Ui {
class ArconGroup;
}

/// The editor of one arc-start file.
class ArconGroup : public ProcessGroup
{
    Q_OBJECT
public:
    explicit ArconGroup(QWidget *parent = nullptr);
    ~ArconGroup() override;

public slots:
    /// A pre-arc time and a moving start exclude each other.
    void onArconLeadTimeEditFinished();

protected:
    void bindFields(FieldTable &fields) override;
    void initConnect() override;
    void currentUnitChanged(const QString &unit) override;
    void voltageUnitChanged(const QString &unit) override;
    void applyRules() override;

private:
    std::unique_ptr<Ui::ArconGroup> ui;
};

} // namespace welmo
