#pragma once

#include <QWidget>

class EnableButton;
class QComboBox;

namespace tessa {
class ControllerStatus;
}

namespace welmo::pendant {

class LinkControl;

/// The strip above everything: the cell's name, what decides over the pages' availability, and the
/// link to the controller.
class HeaderBar : public QWidget
{
    Q_OBJECT
public:
    HeaderBar(tessa::ControllerStatus *status, LinkControl *link, QWidget *parent = nullptr);

private:
    QComboBox *addSelector(const QString &name, const QString &tip, const QStringList &texts);
    void followStatus();
    void refresh();

    tessa::ControllerStatus *m_status;
    LinkControl *m_link;
    QComboBox *m_state;
    QComboBox *m_mode;
    QComboBox *m_power;
    QComboBox *m_level;
    EnableButton *m_switch;
};

} // namespace welmo::pendant
