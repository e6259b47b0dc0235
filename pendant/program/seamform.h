#pragma once

#include "pendant/program/hostform.h"

class QComboBox;
class QGridLayout;
class QSpinBox;

namespace welmo::pendant {

/// A whole seam: the move to it, the arc, the bead from one point to another, and the move away.
class SeamForm : public HostForm
{
    Q_OBJECT
public:
    explicit SeamForm(QWidget *parent);

    void FillWith(const QString &) override { }
    QString ToString() override;

private:
    void addRow(QGridLayout *layout, const QString &label, QWidget *field);
    QComboBox *addChoice(QGridLayout *layout, const QString &label, const char *name,
                         const QStringList &texts);

    QComboBox *m_from;
    QComboBox *m_to;
    QComboBox *m_speed;
    QComboBox *m_start;
    QComboBox *m_weld;
    QComboBox *m_end;
    QSpinBox *m_distance;
};

} // namespace welmo::pendant
