#pragma once

#include "pendant/pages/hostpage.h"

class QComboBox;
class QHBoxLayout;
class QGridLayout;

namespace welmo::controller {
class Faults;
}

namespace welmo::pendant {

/// How the virtual controller answers: late, not at all, or with a refusal.
class AnswersPanel : public Card
{
    Q_OBJECT
public:
    explicit AnswersPanel(controller::Faults *faults, QWidget *parent = nullptr);

private:
    QComboBox *addChoice(QGridLayout *grid, const QString &caption, const QString &name);
    void addAction(QHBoxLayout *row, const QString &text, const QString &name,
                   void (AnswersPanel::*action)());
    void fillRefusals();
    void refuseNext();
    void loseNext();
    void refresh();

    controller::Faults *m_faults;
    QComboBox *m_delay;
    QComboBox *m_path;
    QComboBox *m_code;
};

} // namespace welmo::pendant
