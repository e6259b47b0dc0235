#pragma once

#include <QLabel>

namespace tessa {
class ControllerStatus;
} // namespace tessa

namespace welmo::pendant {

/// Says, above a page that locks itself, why nothing can be changed there.
class LockLine : public QLabel
{
    Q_OBJECT
public:
    LockLine(const tessa::ControllerStatus *status, QWidget *parent);

public slots:
    /// The page with that key is in front now.
    void setPage(const QString &key);

private:
    void refresh();
    QString reason() const;

    const tessa::ControllerStatus *m_status;
    bool m_locksItself = false;
};

} // namespace welmo::pendant
