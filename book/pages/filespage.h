#pragma once

#include <QPointer>
#include <QWidget>

#include "book/keeper/cellwriter.h"
#include "book/keeper/programuses.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableView;

namespace welmo::book {

class Bookkeeper;
class FileCard;
class FileModel;

/// Every parameter file of the controller: where it is used, its versions, and actions on it.
class FilesPage : public QWidget
{
    Q_OBJECT
public:
    FilesPage(Bookkeeper *keeper, QWidget *parent);

signals:
    void releaseWanted(const QString &file);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *makeFilters();
    void makeFileTable();
    QWidget *makeActions();
    void reload();
    void showRows();
    void onChosen();
    void updateActions();

    void copy();
    void goBack();
    void useDefaults();
    void remove();
    void undo();
    void release();
    void removeUnlessUsed(const QString &name);
    void carryOut(const QString &title, const CellChange &change);

    QString file() const;

    QPointer<Bookkeeper> m_keeper;
    QComboBox *m_set;
    QComboBox *m_which;
    QLabel *m_count;
    QTableView *m_table;
    FileModel *m_model;
    FileCard *m_card;
    QComboBox *m_target;
    QPushButton *m_copy = nullptr;
    QPushButton *m_back = nullptr;
    QPushButton *m_defaults = nullptr;
    QPushButton *m_remove = nullptr;
    QPushButton *m_release = nullptr;
    QPushButton *m_undo = nullptr;
    QLabel *m_last;
    QString m_shown;
    ProgramUses m_uses;
    QHash<QString, int> m_welds;
};

} // namespace welmo::book
