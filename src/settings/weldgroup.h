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

    /// Applies the edited values to the welder at once; only the process page offers it.
    QPushButton *enableButton() const;

public slots:
    /// The restart distance is only offered where the weld can be taken up again.
    void onArcBreakOptionChanged(int index);

protected:
    void bindFields(FieldTable &fields) override;
    void initConnect() override;
    void applyRules() override;

private:
    std::unique_ptr<Ui::WeldGroup> ui;
};

} // namespace welmo
