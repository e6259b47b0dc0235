#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "schema/release.h"

class QCheckBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace welmo::book {

class Bookkeeper;

/// A file's released version, and how far an operator may trim it; in force once it is saved.
class ReleasePanel : public QWidget
{
    Q_OBJECT
public:
    ReleasePanel(Bookkeeper *keeper, QWidget *parent);

    void edit(const QString &file);

signals:
    void done();

private:
    struct TrimRow
    {
        QString key;
        std::vector<QWidget *> widgets; ///< all of the row
        QDoubleSpinBox *percent;
        QLabel *allowed;
    };

    void addTrim(QGridLayout *grid, const QString &key);
    QWidget *makeButtons();
    void showRanges();
    schema::Release wanted() const;
    void save();
    void withdraw();
    void store(const schema::Release &release);

    QPointer<Bookkeeper> m_keeper;
    QLabel *m_title;
    QLabel *m_state;
    QLabel *m_since;
    QCheckBox *m_anew;
    QPushButton *m_withdraw = nullptr;
    std::vector<TrimRow> m_rows;
    QString m_file;
    schema::Release m_release;
    QVariantMap m_present; ///< the file as it is now
};

/// "released 11-22 10:15 by anna: current ± 5 %, voltage locked"; empty for no release.
QString releaseText(const schema::Set &set, const schema::Release &release);

} // namespace welmo::book
