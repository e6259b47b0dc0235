#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

#include "book/keeper/cellbackup.h"

class QCheckBox;
class QComboBox;
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
    QWidget *makeFolderRow();
    QWidget *makeFileRow();
    QWidget *makeActions();
    void makeItemTable();
    void listFiles(const QString &chosen = {});
    void make();
    void look();
    bool mayTake(const BackupFile &file);
    void showItems(const QVector<RestoreItem> &items, int places);
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
    QPushButton *m_restore;
    QVector<RestoreItem> m_items;
};

} // namespace welmo::book
