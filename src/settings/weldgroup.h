#pragma once

#include <memory>

#include "settings/processgroup.h"

namespace welmo {

namespace Ui {
class WeldGroup;
}

/// The editor of one welding file.
class WeldGroup : public ProcessGroup
{
    Q_OBJECT
public:
    explicit WeldGroup(QWidget *parent = nullptr);
    ~WeldGroup() override;

    /// The button that applies the edited values to the welder at once; only the process page shows
    /// it.
    QPushButton *enableButton() const;

public slots:
    /// Offers the restart distance only where the weld can be resumed.
    void onArcBreakOptionChanged(int index);

protected:
    void bindFields(FieldTable &fields) override;
    void initConnect() override;
    void applyRules() override;

private:
    std::unique_ptr<Ui::WeldGroup> ui;
};

} // namespace welmo
