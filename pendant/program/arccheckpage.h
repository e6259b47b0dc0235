#pragma once

#include <QHash>
#include <QTimer>

#include "pendant/pages/hostpage.h"

class QGridLayout;
class QPushButton;

namespace welmo::pendant {

class Cell;
class ProgramDocument;
struct ArcCheck;

/// Why is there no arc? Shows everything that an arc needs, green or red, with a button to the page
/// where it can be corrected. Updated while it is shown.
class ArcCheckPage : public HostPage
{
    Q_OBJECT
public:
    ArcCheckPage(const ProgramDocument *program, const Cell *cell, QWidget *parent = nullptr);

signals:
    void pageWanted(const QString &key);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    struct Row
    {
        QLabel *text;
        QLabel *value;
    };
    void addRow(const ArcCheck &check, QGridLayout *grid);
    void refresh();

    const ProgramDocument *m_program;
    const Cell *m_cell;
    QLabel *m_sum = nullptr; // what is wrong
    QHash<QString, Row> m_rows;
    QTimer m_looks;
};

} // namespace welmo::pendant
