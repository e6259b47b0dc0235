#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

#include "book/keeper/cellbackup.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStandardItemModel;
class QTableView;

namespace welmo::book {

class Bookkeeper;

/// Writes all that the controller keeps to a file, and shows what differs from such a file before
/// any of it is restored.
class BackupPage : public QWidget
{
    Q_OBJECT
public:
    BackupPage(Bookkeeper *keeper, QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;

private:
    QGridLayout *makeChoice();
    QWidget *makeActions();
    void makeItemTable();
    void listFiles(const QString &chosen = {});
    void make();
    void look();
    bool mayTake(const BackupFile &file);
    void showItems(const QVector<RestoreItem> &items);
    void tickAll(bool on);
    void restore();
    void takeLimits(const QVector<RestoreItem> &items);
    QVector<RestoreItem> ticked() const;

    QPointer<Bookkeeper> m_keeper;
    QLineEdit *m_folder;
    QComboBox *m_file;
    QCheckBox *m_otherCell;
    QLabel *m_state;
    QTableView *m_table;
    QStandardItemModel *m_model;
    QLabel *m_empty; ///< shown instead of rows
    QPushButton *m_look;
    QPushButton *m_all;
    QPushButton *m_none;
    QPushButton *m_restore;
    QVector<RestoreItem> m_items;
};

} // namespace welmo::book
