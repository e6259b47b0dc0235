#pragma once

#include "pendant/pages/hostpage.h"

class QLabel;
class QPushButton;
class XService;

namespace welmo::pendant {

/// Who holds control of a cell that several pendants can work, and the buttons that pass it on. It
/// is taken only when nobody has it.
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
