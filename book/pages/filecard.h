#pragma once

#include <QPointer>
#include <QWidget>

#include "book/records/filehistory.h"

class QComboBox;
class QLabel;
class QStandardItemModel;
class QTableView;

namespace welmo::book {

class Bookkeeper;

/// The versions of one file, each with what it changed, and a comparison of two versions or files
/// that shows only the differences.
class FileCard : public QWidget
{
    Q_OBJECT
public:
    FileCard(Bookkeeper *keeper, QWidget *parent);

    /// An empty name clears the card.
    void showFile(const QString &file);
    /// The chosen version; its number is 0 if there is none.
    FileVersion chosen() const;
    /// Shows what is released of the file, again after a change.
    void showRelease();

signals:
    void versionChosen();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeHistory();
    void showVersions(const QVector<FileVersion> &versions);
    void fillOthers();
    void compare();
    void showDifferences(const FileVersion &left, const FileVersion &right, const QString &title);
    QString changesText(const FileVersion &version, const FileVersion &before) const;

    QPointer<Bookkeeper> m_keeper;
    QLabel *m_release;
    QTableView *m_history;
    QStandardItemModel *m_historyModel;
    QComboBox *m_with;
    QLabel *m_same;
    QTableView *m_differences;
    QStandardItemModel *m_differencesModel;
    QString m_file;
    QVector<FileVersion> m_versions; // newest first
};

} // namespace welmo::book
