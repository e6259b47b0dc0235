#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>

#include "book/records/seambook.h"
#include "book/report/reportfile.h"

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QTableView;

namespace welmo::book {

class Bookkeeper;
class LimitsPanel;
class SeamCard;
class SeamModel;

/// The records as a list with filters, and the card of the chosen one.
class WeldsPage : public QWidget
{
    Q_OBJECT
public:
    WeldsPage(Bookkeeper *keeper, QWidget *parent);

    /// Reads the list again; the chosen record stays chosen.
    void reload();

signals:
    /// The user wants to see or change the limits of this welding file.
    void limitsWanted(const QString &file);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *makeFilters();
    QComboBox *makeFilter(const QString &name);
    void setUpTable();
    QWidget *makeActions();
    Filter filter() const;
    void fill(QComboBox *combo, const QString &all, const QStringList &names);
    void showList(const QVector<Seam> &seams, int count);
    void onChosen();
    void scrollToChosen();
    void compare(bool on);
    QMenu *makeExportMenu();
    void exportAs(ReportKind kind);

    QPointer<Bookkeeper> m_keeper;
    QComboBox *m_day = nullptr;
    QComboBox *m_program = nullptr;
    QComboBox *m_file = nullptr;
    QComboBox *m_verdict = nullptr;
    QLabel *m_count;
    QTableView *m_table;
    SeamModel *m_model;
    SeamCard *m_card;
    QPushButton *m_compare = nullptr;
    QVector<QAction *> m_ofOne; ///< enabled while a weld is chosen
    QPushButton *m_limits = nullptr;
    std::optional<Seam> m_chosen;
};

} // namespace welmo::book
