#pragma once

#include <QFrame>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace welmo::pendant {

/// Chooses the file from which a program is read or to which it is saved: the pendant's own
/// programs, the examples that came with it, or any other file of the machine.
class FilesPane : public QFrame
{
    Q_OBJECT
public:
    /// @p folder holds the pendant's own programs; it is made at the first save.
    explicit FilesPane(const QString &folder, QWidget *parent = nullptr);

    void chooseToOpen();
    /// @p name is suggested as the file's name.
    void chooseToSave(const QString &name);

signals:
    void openWanted(const QString &file);
    /// The operator has agreed to replace an existing file.
    void saveWanted(const QString &file);
    void closed();

private:
    void start(bool saves, const QString &heading, const QString &button);
    void list(const QString &heading, const QString &folder);
    void refresh();
    void onAcceptClicked();
    void save(const QString &file);
    void askToReplace(const QString &file);
    void browse();

    QString m_folder;
    bool m_saves = false;
    QLabel *m_heading;
    QListWidget *m_files;
    QLineEdit *m_name;
    QPushButton *m_accept;
};

} // namespace welmo::pendant
