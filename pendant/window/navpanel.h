#pragma once

#include <QHash>
#include <QWidget>

class QLabel;
class QToolButton;
class QVBoxLayout;

namespace kelp {
class ModuleObject;
}

namespace welmo::pendant {

/// The navigation on the left: the entries of the application-wide tree in their order, with a
/// heading before each group. Follows changes of the tree.
class NavPanel : public QWidget
{
    Q_OBJECT
public:
    explicit NavPanel(kelp::ModuleObject *entries, QWidget *parent = nullptr);

    /// Marks the entry of the page @p key; none if no entry leads there.
    void setCurrent(const QString &key);
    /// Shows a number beside the entry of the page @p key; 0 shows none.
    void setCount(const QString &key, int count);
    /// Shows only the entries' pictures.
    void setNarrow(bool narrow);

signals:
    /// The entry of the page @p key was pressed.
    void chosen(const QString &key);

private:
    void rebuild();
    void scheduleRebuild();
    void addGroup(const QString &group, const QList<kelp::ModuleObject *> &entries);
    void addEntry(const kelp::ModuleObject *entry);
    void showCount(const QString &key);
    void showHeading(QLabel *heading);
    void showTitle(QToolButton *button);

    kelp::ModuleObject *m_entries;
    QVBoxLayout *m_layout;
    QHash<QString, QToolButton *> m_buttons;
    QHash<QString, QString> m_titles;
    QHash<QString, int> m_counts;
    QString m_current;
    bool m_stale = false;
    bool m_narrow = false;
};

} // namespace welmo::pendant
