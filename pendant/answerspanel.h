#pragma once

#include "pendant/hostpage.h"

class QComboBox;
class QGridLayout;

namespace controller {
class Faults;
}

namespace pendant {

/// How the virtual controller answers: late, not at all, or with a refusal.
class AnswersPanel : public Card
{
    Q_OBJECT
public:
    explicit AnswersPanel(controller::Faults *faults, QWidget *parent = nullptr);

private:
    QComboBox *addChoice(QGridLayout *grid, const QString &caption, const QString &name);
    void addAction(const QString &text, const QString &name, void (AnswersPanel::*action)());
    void fillRefusals();
    void refuseNext();
    void loseNext();
    void refresh();

    controller::Faults *m_faults;
    QComboBox *m_delay;
    QComboBox *m_path;
    QComboBox *m_code;
};

} // namespace pendant
