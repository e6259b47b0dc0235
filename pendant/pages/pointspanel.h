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

/// The project's points, and actions on the chosen one. Those that cannot be undone ask first.
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
    QString m_shown; // name of the shown point
    QString m_made; // name of a renamed or copied point, to choose in the next list
    QListWidget *m_list;
    QLabel *m_detail;
    QLineEdit *m_name;
    QPushButton *m_rename;
    QPushButton *m_copy;
    QPushButton *m_touchUp;
    QPushButton *m_remove;
};

} // namespace welmo::pendant
