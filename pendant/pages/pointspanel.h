#pragma once

#include "pendant/pages/hostpage.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tessa {
class Host;
}

namespace welmo::pendant {

class ProjectPoints;

/// The project's points, and what is done to the chosen one. What cannot be undone is asked about.
class PointsPanel : public Card
{
    Q_OBJECT
public:
    explicit PointsPanel(tessa::Host *host, QWidget *parent = nullptr);

private:
    QPushButton *addButton(QLayout *row, const QString &name, const QString &text);
    QString chosen() const;
    void fill();
    void refresh();
    void rename();
    void ask(const QString &question, const QString &yes,
             bool (ProjectPoints::*act)(const QString &));

    ProjectPoints *m_points;
    QString m_shown; // the point
    QString m_renamed; // it is chosen when the list comes anew
    QListWidget *m_list;
    QLabel *m_detail;
    QLineEdit *m_name;
    QPushButton *m_rename;
    QPushButton *m_touchUp;
    QPushButton *m_remove;
};

} // namespace welmo::pendant
