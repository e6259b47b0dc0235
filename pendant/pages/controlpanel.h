#pragma once

#include "pendant/pages/hostpage.h"

class QLabel;
class QPushButton;
class XService;

namespace welmo::pendant {

/// Who has control of a cell that several pendants can use, and the buttons to hand it over. It can
/// only be taken while no pendant has it.
class ControlPanel : public Card
{
    Q_OBJECT
public:
    explicit ControlPanel(XService *service, QWidget *parent = nullptr);

private:
    void follow();
    void refresh();
    void run(const QString &command);

    XService *m_service;
    QLabel *m_holder;
    QPushButton *m_take;
    QPushButton *m_give;
};

} // namespace welmo::pendant
