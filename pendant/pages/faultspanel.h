#pragma once

#include <QVector>

#include "controller/core/faults.h"
#include "pendant/pages/hostpage.h"

class EnableButton;

namespace welmo::pendant {

/// A switch for each fault of the virtual controller, and one button that ends all of them.
class FaultsPanel : public Card
{
    Q_OBJECT
public:
    explicit FaultsPanel(controller::Faults *faults, QWidget *parent = nullptr);

private:
    void addSwitch(controller::Faults::Fault fault, const QString &text);
    void refresh();

    struct Switch
    {
        controller::Faults::Fault fault;
        EnableButton *button;
    };

    controller::Faults *m_faults;
    QVector<Switch> m_switches;
};

} // namespace welmo::pendant
